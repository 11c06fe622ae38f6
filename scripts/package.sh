#!/bin/sh
# Makes the release archives from the checkout: Tqmlib52-<version>-win32.zip
# (the shipped i686 build) and Tqmlib52-<version>-win64.zip (x86_64), each the
# install tree (bin, include, lib, lib/cmake, share/doc with the reference)
# in one top folder. The version is res/Version.h's. Archives go to dist/.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

./scripts/setup.sh
mkdir -p dist
for arch in i686 x86_64; do
    ./scripts/build.sh "$arch"
    ./scripts/docs.sh "$arch"
    rm -rf "build/$arch/dist"
    (cd "build/$arch" && cpack -G ZIP)
    cp "build/$arch"/dist/Tqmlib52-*.zip dist/
done
ls -l dist/Tqmlib52-*.zip
