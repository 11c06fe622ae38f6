#!/bin/sh
# Runs every benchmark (bench/*.cpp) of one build under Wine. Each prints its
# figures as ratios to a baseline it measures in the same run.
#   bench.sh [i686|x86_64] [NAME...]
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
arch=${1:-x86_64}
[ $# -gt 0 ] && shift
"$root/scripts/setup.sh" >/dev/null
"$root/scripts/build.sh" "$arch" >/dev/null
build=$root/build/$arch
if [ $# -gt 0 ]; then names="$*"; else names=$(cd "$build/bin" && ls bench_*.exe 2>/dev/null | sed 's/^bench_//; s/\.exe$//'); fi
for name in $names; do
    echo "== bench $name ($arch)"
    "$root/scripts/wine-run.sh" "$arch" "$build/wineprefix" "$build/bin/bench_$name.exe"
done
