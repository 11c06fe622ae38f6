#!/bin/sh
# Runs a Windows program under Wine in a private prefix.
#   wine-run.sh PREFIX PROGRAM [ARGS...]
# The prefix is made on first use (see wine-prefix.sh).
set -e
prefix=$1
shift
"$(dirname "$0")/wine-prefix.sh" "$prefix"
export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
exec wine "$@"
