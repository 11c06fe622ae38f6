#!/bin/sh
# Installs everything the build and the tests need, from Debian's packages only.
# Safe to run again: apt-get skips what is already there, and the 32-bit Wine
# attempt is allowed to fail (the mirror's i386 side is sometimes out of step).
set -eu

SUDO=""
if [ "$(id -u)" != "0" ]; then SUDO="sudo"; fi

need_pkgs="cmake ninja-build g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix \
binutils-mingw-w64-i686 binutils-mingw-w64-x86-64 googletest wine wine64"

missing=""
for p in $need_pkgs; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
if [ -n "$missing" ]; then
    echo "setup: installing$missing"
    $SUDO apt-get update -qq || true
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends $missing
fi

# 32-bit Wine runs the i686 test programs; without it those tests are skipped.
# A failed attempt is remembered for a day, so that repeated runs stay quick.
stamp_dir=${XDG_CACHE_HOME:-$HOME/.cache}/tqmlib52
stamp=$stamp_dir/wine32-unavailable
if ! dpkg-query -W -f='${Status}' wine32:i386 2>/dev/null | grep -q "install ok installed"; then
    if [ -f "$stamp" ] && [ -n "$(find "$stamp" -mmin -1440 2>/dev/null)" ]; then
        echo "setup: wine32:i386 was not installable today; the i686 tests will be skipped"
        exit 0
    fi
    echo "setup: trying wine32:i386 (optional)"
    mkdir -p "$stamp_dir"
    log=$stamp_dir/wine32-attempt.log
    {
        if ! dpkg --print-foreign-architectures | grep -qx i386; then
            $SUDO dpkg --add-architecture i386
            $SUDO apt-get update -qq || true
        fi
        DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends wine32:i386
    } >"$log" 2>&1 && installed=yes || installed=no
    if [ "$installed" = yes ]; then
        rm -f "$stamp"
        echo "setup: wine32 installed"
    else
        touch "$stamp"
        echo "setup: wine32:i386 could not be installed (see $log); the i686 tests will be skipped"
    fi
fi
