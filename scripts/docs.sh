#!/bin/sh
# Builds the API reference: Doxygen over the public headers, into
# build/<arch>/doc/html (open index.html). Fails on any Doxygen warning.
#   docs.sh [i686|x86_64]      (default x86_64; the reference is the same)
set -eu
arch=${1:-x86_64}
root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/$arch
if ! command -v doxygen >/dev/null 2>&1; then
    "$root/scripts/setup.sh"
fi
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-$arch.cmake" >/dev/null
cmake --build "$build" --target docs
echo "docs: $build/doc/html/index.html"
