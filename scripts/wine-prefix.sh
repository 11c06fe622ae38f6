#!/bin/sh
# Makes a private Wine prefix once, and keeps its settings current:
#   - no Mono or Gecko prompts (WINEDLLOVERRIDES);
#   - the null graphics driver, so that windows and messages work without a
#     display. The driver is set while the prefix is made and the server is
#     then waited for: a driver changed under a running wineserver leaves
#     CreateWindow failing;
#   - no debugger on a crash: Wine starts winedbg even without a debugger
#     setting, so the setting names a command that exits at once, and a
#     crashing test ends at once instead of waiting until its time-out.
#   wine-prefix.sh i686|x86_64 PREFIX [DRIVER]
# DRIVER x11 makes a prefix that draws on the X display in $DISPLAY instead.
set -e
arch=$1
prefix=$2
driver=${3:-null}
# Wine takes only an absolute WINEPREFIX; a relative one is made absolute here.
case $prefix in /*) ;; *) prefix=$(pwd)/$prefix ;; esac
settings_version=4
marker="$prefix/.tqm-ready"
[ -f "$marker" ] && [ "$(cat "$marker")" = "$settings_version" ] && exit 0

mkdir -p "$(dirname "$prefix")"
exec 9>"$prefix.lock"
flock 9
[ -f "$marker" ] && [ "$(cat "$marker")" = "$settings_version" ] && exit 0

export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
wine=wine
if [ "$arch" = x86_64 ]; then  # the 64-bit loader itself (see wine-run.sh)
    export WINELOADER=/usr/lib/wine/wine64
    wine=/usr/lib/wine/wine64
fi
if [ ! -f "$marker" ]; then
    echo "wine-prefix: making $prefix" >&2
    # Wine's own words are kept: when the prefix cannot be made, they say why.
    log="$prefix.log"
    "$wine" wineboot -i >"$log" 2>&1 || true
    if ! "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d "$driver" /f >>"$log" 2>&1; then
        echo "wine-prefix: cannot set up $prefix with the $arch loader; Wine said:" >&2
        grep -v '^ *$' "$log" | tail -n 8 | sed 's/^/    /' >&2
        exit 1
    fi
fi
for key in 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' \
           'HKLM\Software\Wow6432Node\Microsoft\Windows NT\CurrentVersion\AeDebug'; do
    "$wine" reg add "$key" /v Debugger /d 'cmd.exe /c exit %ld %ld' /f >/dev/null 2>&1
    "$wine" reg add "$key" /v Auto /d 1 /f >/dev/null 2>&1
done
"$wine" reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null 2>&1
wineserver -w
echo "$settings_version" > "$marker"
