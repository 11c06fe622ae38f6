#!/bin/sh
# The whole test suite, from a fresh Debian machine on:
#   - installs what is missing (setup.sh), builds both architectures;
#   - checks the i686 DLL's export table and both DLLs' imports;
#   - checks the package: the C header, the import libraries, the examples
#     built against the install tree, and the API reference;
#   - runs every test program under Wine: i686 first (the shipped build)
#     wherever 32-bit programs and the 32-bit Wine loader (wine32) run
#     natively, then x86_64; each suite includes a client built with
#     Microsoft's conventions (clang-cl, lld-link) against the import library;
#   - replays the fuzzing regressions and fuzzes each parser briefly.
# Exits non-zero when anything fails.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

./scripts/setup.sh
./scripts/build.sh x86_64
./scripts/build.sh i686

status=0
echo "== i686: export table of Tqmlib52.dll and imports; C header, import libraries, package"
(cd build/i686 && ctest --output-on-failure -R '^(exports|cheader|importlib|package)$') || status=1

echo "== API reference (no Doxygen warning allowed)"
./scripts/docs.sh x86_64 || status=1

# Each suite's prefix is made, and a trivial program started in it, before
# its first test: a Wine that cannot do either is reported here, in its own
# words, instead of as the first test's failure.
prepare_wine() {
    if ! out=$(timeout 900 ./scripts/wine-prefix.sh "$1" "$2" 2>&1); then
        wine_problem="$1 Wine could not make its prefix $2:
$out"
        return 1
    fi
    [ -n "$out" ] && printf '%s\n' "$out"
    if ! start_seconds=$(./scripts/wine-start-seconds.sh "$1" "$2" 2>/tmp/tqm-start.$$); then
        wine_problem="$1 Wine could not start a program in $2: $(cat /tmp/tqm-start.$$)"
        rm -f /tmp/tqm-start.$$
        return 1
    fi
    rm -f /tmp/tqm-start.$$
}

# The i686 suite tests the shipped DLL, so it runs first. It is skipped only
# where this machine cannot run it (no wine32, a kernel that refuses 32-bit
# programs, or only an emulator), and the skip says what failed in the words
# of the command that failed. Where 32-bit programs run natively and wine32 is
# installed, a Wine that cannot make its prefix or start a program fails the run.
i686_prefix=$root/build/i686/wineprefix
i686_skipped() {
    echo "== i686: tests SKIPPED - $1"
    echo "   (the i686 DLL was built and its exports checked; the test programs were built but not run)"
}
i686_failed() {
    echo "== i686: tests FAILED - $1"
    status=1
}
i686_suite() {
    if [ ! -x /usr/lib/wine/wine ]; then
        i686_skipped "wine32 is not installed on this machine (/usr/lib/wine/wine is missing)"
        return
    fi
    if ! probe=$(./scripts/can-run-i386.sh 2>&1); then
        i686_skipped "this machine does not run 32-bit programs: $probe"
        return
    fi
    i686_timeout=900
    if emulator=$(./scripts/i386-emulator.sh); then
        if [ -z "${TQM_I686_UNDER_EMULATION:-}" ]; then
            i686_skipped "32-bit programs run here only through an emulator ($emulator);
   Wine under it needs minutes per process, the run would take hours
   (set TQM_I686_UNDER_EMULATION=1 to run them anyway)"
            return
        fi
        i686_timeout=14400
    fi
    prepare_wine i686 "$i686_prefix" || { i686_failed "$wine_problem"; return; }
    echo "== i686: tests under wine32 (a trivial program starts in ${start_seconds} s)"
    (cd build/i686 && ctest --output-on-failure --timeout $i686_timeout -E '^(exports|cheader|importlib|package)$') || status=1
}
i686_suite

x86_64_suite() {
    if ! prepare_wine x86_64 "$root/build/x86_64/wineprefix"; then
        echo "== x86_64: tests FAILED - $wine_problem"
        status=1
        return
    fi
    echo "== x86_64: tests under wine64 (a trivial program starts in ${start_seconds} s)"
    (cd build/x86_64 && ctest --output-on-failure --timeout 900) || status=1
}
x86_64_suite
[ -f build/x86_64/picture-test-skipped.txt ] && echo "== x86_64: $(cat build/x86_64/picture-test-skipped.txt)"

echo "== fuzzing: regressions, then ${TQM_FUZZ_SECONDS:-20} s per target"
./scripts/fuzz.sh all "${TQM_FUZZ_SECONDS:-20}" || status=1

if [ "$status" -eq 0 ]; then echo "== all tests passed"; else echo "== TESTS FAILED"; fi
exit $status
