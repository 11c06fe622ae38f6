#!/bin/sh
# Exits 0 when this machine can run 32-bit x86 programs at all. Some kernels
# and sandboxes refuse them ("Exec format error") even with 32-bit libraries
# installed; 32-bit Wine is then of no use, and a wine32 that cannot run even
# breaks the "wine" command for 64-bit programs. The probe is a 93-byte
# static i386 program that only exits with 0.
probe=$(mktemp "${TMPDIR:-/tmp}/tqm-i386-probe.XXXXXX") || exit 1
trap 'rm -f "$probe"' EXIT
printf '\177\105\114\106\001\001\001\000\000\000\000\000\000\000\000\000\002\000\003\000\001\000\000\000\124\200\004\010\064\000\000\000\000\000\000\000\000\000\000\000\064\000\040\000\001\000\000\000\000\000\000\000\001\000\000\000\000\000\000\000\000\200\004\010\000\200\004\010\135\000\000\000\135\000\000\000\005\000\000\000\000\020\000\000\270\001\000\000\000\061\333\315\200' >"$probe"
chmod +x "$probe"
# The kernel's answer is kept: a refusal is reported with its own words.
out=$("$probe" 2>&1) && exit 0
rc=$?
echo "a static 32-bit x86 program did not run (exit code $rc${out:+: $out})" >&2
exit 1
