#!/bin/sh
# Prints the interpreter that runs 32-bit x86 programs and exits 0 when they
# run through one (binfmt_misc, e.g. qemu-i386) instead of natively. Wine
# under such an emulator works but needs minutes per process.
for entry in /proc/sys/fs/binfmt_misc/*; do
    [ -f "$entry" ] || continue
    grep -q '^enabled' "$entry" 2>/dev/null || continue
    # ELF, 32-bit, little-endian, machine 3 (i386) at byte 18
    grep -q '^magic 7f454c460101[0-9a-f]\{24\}0300' "$entry" || continue
    sed -n 's/^interpreter //p' "$entry"
    exit 0
done
exit 1
