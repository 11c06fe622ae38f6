#!/bin/sh
# Configures and builds one architecture.
#   build.sh i686|x86_64 [BUILD_DIR]
set -eu
arch=$1
root=$(cd "$(dirname "$0")/.." && pwd)
build=${2:-$root/build/$arch}
# Configuring again is quick, and notices a Wine that was installed since.
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-$arch.cmake" >/dev/null
cmake --build "$build"
