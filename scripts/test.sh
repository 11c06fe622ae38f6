#!/bin/sh
# The whole test suite, from a fresh Debian machine on:
#   - installs what is missing (setup.sh), builds both architectures;
#   - checks the i686 DLL's export table and both DLLs' imports;
#   - checks the package: the C header, the import libraries, the examples
#     built against the install tree, and the API reference;
#   - runs every test program under Wine: x86_64 always, i686 where the
#     32-bit Wine loader (wine32) is installed and runs at native speed;
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

echo "== x86_64: tests under wine64"
(cd build/x86_64 && ctest --output-on-failure --timeout 900) || status=1
[ -f build/x86_64/picture-test-skipped.txt ] && echo "== x86_64: $(cat build/x86_64/picture-test-skipped.txt)"

i686_skipped() {
    echo "== i686: tests SKIPPED - $1"
    echo "   (the i686 DLL was built and its exports checked; the test programs were built but not run)"
}

if [ ! -x /usr/lib/wine/wine ]; then
    i686_skipped "wine32 is not installed on this machine"
elif ! ./scripts/can-run-i386.sh; then
    i686_skipped "this machine does not run 32-bit programs (wine32 is installed but cannot start)"
elif emulator=$(./scripts/i386-emulator.sh) && [ -z "${TQM_I686_UNDER_EMULATION:-}" ]; then
    i686_skipped "32-bit programs run here only through an emulator ($emulator);
   Wine under it needs minutes per process, the run would take hours
   (set TQM_I686_UNDER_EMULATION=1 to run them anyway)"
elif ! timeout 900 ./scripts/wine-prefix.sh i686 build/i686/wineprefix; then
    i686_skipped "32-bit Wine could not make its prefix within 15 minutes"
elif ! start_seconds=$(./scripts/wine-start-seconds.sh i686 build/i686/wineprefix) ||
     { [ "$start_seconds" -gt 20 ] && [ -z "${TQM_I686_UNDER_EMULATION:-}" ]; }; then
    i686_skipped "32-bit Wine is too slow here (starting a program took ${start_seconds:-over 120} s)"
else
    echo "== i686: tests under wine32"
    i686_timeout=900
    [ -n "${TQM_I686_UNDER_EMULATION:-}" ] && i686_timeout=14400
    (cd build/i686 && ctest --output-on-failure --timeout $i686_timeout -E '^(exports|cheader|importlib|package)$') || status=1
fi

echo "== fuzzing: regressions, then ${TQM_FUZZ_SECONDS:-20} s per target"
./scripts/fuzz.sh all "${TQM_FUZZ_SECONDS:-20}" || status=1

if [ "$status" -eq 0 ]; then echo "== all tests passed"; else echo "== TESTS FAILED"; fi
exit $status
