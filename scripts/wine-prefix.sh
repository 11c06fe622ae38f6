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
log="$prefix.log"

# Every step is checked, and a step that fails says so with Wine's own words:
# a prefix half made must never end a test program without a word. The lock's
# descriptor is closed for Wine: the server that Wine starts would otherwise
# hold the lock for as long as it runs.
run() { "$@" >>"$log" 2>&1 9>&-; }
failed() {
    echo "wine-prefix: $1 ($prefix, $arch loader); Wine said:" >&2
    grep -v '^ *$' "$log" | tail -n 8 | sed 's/^/    /' >&2
    return 1
}
set_up() {
    : >"$log"
    if [ ! -f "$marker" ]; then
        echo "wine-prefix: making $prefix" >&2
        # wineboot complains even when it succeeds; the next step tells.
        run "$wine" wineboot -i || true
        run "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d "$driver" /f ||
            { failed "cannot set the graphics driver"; return 1; }
    fi
    for key in 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' \
               'HKLM\Software\Wow6432Node\Microsoft\Windows NT\CurrentVersion\AeDebug'; do
        run "$wine" reg add "$key" /v Debugger /d 'cmd.exe /c exit %ld %ld' /f &&
            run "$wine" reg add "$key" /v Auto /d 1 /f ||
            { failed "cannot turn the crash debugger off under $key"; return 1; }
    done
    run "$wine" reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f ||
        { failed "cannot turn the crash dialog off"; return 1; }
    run wineserver -w || { failed "waiting for the server to end (wineserver -w) failed"; return 1; }
}
# A step that fails for a passing reason (a server starting or ending at that
# moment) is tried once more; the first failure's words stay on standard error.
if ! set_up; then
    echo "wine-prefix: setting up $prefix once more" >&2
    set_up || exit 1
fi
echo "$settings_version" > "$marker"
