#!/bin/sh
# Builds everything and runs the main job: "tqm demo", a tour of the library
# on a demo installation. Installs what is missing first (setup.sh).
# Runs the shipped i686 build where 32-bit Wine is installed, else x86_64.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

./scripts/setup.sh
./scripts/build.sh x86_64
./scripts/build.sh i686

arch=x86_64
[ -x /usr/lib/wine/wine ] && ./scripts/can-run-i386.sh && arch=i686
echo "== tqm demo ($arch build)"
exec ./scripts/tqm.sh "$arch" demo "$@"
