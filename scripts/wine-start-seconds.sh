#!/bin/sh
# Prints how many whole seconds Wine needs to start and end a trivial program
# in a made prefix. Fails when the program does not run or takes longer than
# two minutes, with Wine's own last words on standard error.
#   wine-start-seconds.sh i686|x86_64 PREFIX
here=$(dirname "$0")
start=$(date +%s)
out=$(timeout 120 "$here/wine-run.sh" "$1" "$2" cmd.exe /c exit 0 2>&1)
rc=$?
if [ "$rc" -eq 124 ]; then
    echo "starting a trivial program took over 120 s" >&2
    exit 1
elif [ "$rc" -ne 0 ]; then
    echo "a trivial program (cmd.exe /c exit 0) ended with exit code $rc; Wine said:" >&2
    printf '%s\n' "$out" | grep -v '^ *$' | tail -n 8 | sed 's/^/    /' >&2
    exit 1
fi
echo $(( $(date +%s) - start ))
