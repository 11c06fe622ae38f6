#!/bin/sh
# The picture test: the static link drawn on a real X display and read back
# from the screen (tests/ui/StaticLinkPictureTest.cpp). Starts an Xvfb
# display of its own and runs the test in a Wine prefix that draws there
# (BUILD/wineprefix-x11, made once). Exit 77 (skipped), with the reason on
# stdout and in BUILD/picture-test-skipped.txt, when Xvfb cannot start.
#   picture-test.sh BUILD_DIR
set -u
build=$(cd "$1" && pwd)
scripts=$(cd "$(dirname "$0")" && pwd)
skipped=$build/picture-test-skipped.txt
rm -f "$skipped"

skip() {
    echo "picture test SKIPPED: $1" | tee "$skipped"
    exit 77
}

command -v Xvfb >/dev/null 2>&1 || skip "Xvfb is not installed (Debian package xvfb)"
work=$(mktemp -d)
# Xvfb picks a free display itself and names it on the descriptor given.
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/display" >"$work/xvfb.log" 2>&1 &
xvfb=$!
cleanup() {
    WINEPREFIX="$build/wineprefix-x11" wineserver -k >/dev/null 2>&1
    kill "$xvfb" 2>/dev/null
    wait "$xvfb" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT
for _ in $(seq 50); do
    [ -s "$work/display" ] && break
    kill -0 "$xvfb" 2>/dev/null || break
    sleep 0.2
done
[ -s "$work/display" ] || skip "Xvfb did not start: $(tail -n 3 "$work/xvfb.log" | tr '\n' ' ')"
export DISPLAY=":$(cat "$work/display")"

prefix=$build/wineprefix-x11
"$scripts/wine-prefix.sh" x86_64 "$prefix" x11 || skip "no Wine prefix that draws on X could be made"
TQM_PICTURE_TEST=1 "$scripts/wine-run.sh" x86_64 "$prefix" "$build/bin/ui_test.exe" \
    --gtest_filter='StaticLinkPicture.*'
