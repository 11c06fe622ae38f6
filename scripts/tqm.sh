#!/bin/sh
# Runs the built tqm under Wine, in the build's private prefix.
#   tqm.sh i686|x86_64 ARGS...
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
arch=$1
shift
build=$root/build/$arch
exec "$root/scripts/wine-run.sh" "$arch" "$build/wineprefix" "$build/bin/tqm.exe" "$@"
