#!/bin/sh
# Makes a private Wine prefix once: no Mono or Gecko prompts, and the null
# graphics driver so that windows and messages work without a display. The
# driver is set while the prefix is made and the server is then waited for:
# a driver changed under a running wineserver leaves CreateWindow failing.
#   wine-prefix.sh PREFIX
set -e
prefix=$1
[ -f "$prefix/.tqm-ready" ] && exit 0

mkdir -p "$(dirname "$prefix")"
exec 9>"$prefix.lock"
flock 9
[ -f "$prefix/.tqm-ready" ] && exit 0

export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
echo "wine-prefix: making $prefix" >&2
wineboot -i >/dev/null 2>&1 || true
wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
wineserver -w
touch "$prefix/.tqm-ready"
