#!/bin/sh
# Runs a Windows program under Wine in a private prefix.
#   wine-run.sh i686|x86_64 PREFIX PROGRAM [ARGS...]
# The prefix is made on first use (see wine-prefix.sh). 64-bit programs run
# on the 64-bit loader directly: the "wine" command prefers the 32-bit loader
# whenever wine32 is installed, even where it cannot run.
set -e
arch=$1
prefix=$2
shift 2
case $prefix in /*) ;; *) prefix=$(pwd)/$prefix ;; esac  # Wine refuses a relative prefix
"$(dirname "$0")/wine-prefix.sh" "$arch" "$prefix"
export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
if [ "$arch" = x86_64 ]; then
    export WINELOADER=/usr/lib/wine/wine64
    exec /usr/lib/wine/wine64 "$@"
fi
exec wine "$@"
