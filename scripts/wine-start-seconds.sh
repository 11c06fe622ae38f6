#!/bin/sh
# Prints how many whole seconds Wine needs to start and end a trivial program
# in a made prefix; fails when it takes longer than two minutes.
#   wine-start-seconds.sh i686|x86_64 PREFIX
here=$(dirname "$0")
start=$(date +%s)
timeout 120 "$here/wine-run.sh" "$1" "$2" cmd.exe /c exit 0 >/dev/null 2>&1 || exit 1
echo $(( $(date +%s) - start ))
