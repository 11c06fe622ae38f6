#!/bin/sh
# Installs everything the build and the tests need, from Debian's packages only.
# Safe to run again: apt-get skips what is already there, and the 32-bit Wine
# attempt is allowed to fail (the mirror's i386 side is sometimes out of step).
set -eu

SUDO=""
if [ "$(id -u)" != "0" ]; then SUDO="sudo"; fi

need_pkgs="cmake ninja-build g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix \
binutils-mingw-w64-i686 binutils-mingw-w64-x86-64 googletest wine wine64 \
clang clang-tools libclang-rt-dev llvm lld doxygen xvfb nlohmann-json3-dev"

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
# A library that both architectures need must be at one version on both. When
# the mirror's i386 side lags behind amd64 (a security update published for
# one only), apt refuses the plain install. The second way pins the base suite
# and, round by round, each library apt names as "not going to be installed"
# to the version its i386 side has, on both sides (a downgrade on amd64 where
# needed). Nothing is ever removed (--no-remove), and wine64 stays requested.
# A failed attempt is remembered for a day, so that repeated runs stay quick.
stamp_dir=${XDG_CACHE_HOME:-$HOME/.cache}/tqmlib52
stamp=$stamp_dir/wine32-unavailable

apt_wine32() {  # apt_wine32 [APT OPTIONS AND PACKAGES...]
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -q --no-install-recommends --no-remove \
        "$@" wine64 wine32:i386 2>&1
}

install_wine32_pinned() {  # install_wine32_pinned CODENAME
    pins=""
    for round in 1 2 3 4 5 6 7 8; do
        out=$(apt_wine32 --allow-downgrades -t "$1" $pins) && return 0
        echo "$out"
        added=""
        for pkg in $(echo "$out" | sed -n 's/.*Depends: \([^ :]*\):i386.*not \(going to be installed\|installable\).*/\1/p' | sort -u); do
            ver=$(apt-cache policy "$pkg:i386" | sed -n 's/^ *Candidate: //p')
            case "$ver" in ""|"(none)") continue ;; esac
            case " $pins " in *" $pkg=$ver "*) continue ;; esac
            added="$added $pkg=$ver $pkg:i386=$ver"
        done
        [ -n "$added" ] || return 1
        echo "setup: pinning$added"
        pins="$pins$added"
    done
    return 1
}

if ! "$(dirname "$0")/can-run-i386.sh"; then
    echo "setup: this machine does not run 32-bit programs: no wine32, and the i686 tests will be skipped"
elif ! dpkg-query -W -f='${Status}' wine32:i386 2>/dev/null | grep -q "install ok installed"; then
    if [ -f "$stamp" ] && [ -n "$(find "$stamp" -mmin -1440 2>/dev/null)" ]; then
        echo "setup: wine32:i386 was not installable today; the i686 tests will be skipped"
        exit 0
    fi
    echo "setup: trying wine32:i386 (optional)"
    mkdir -p "$stamp_dir"
    log=$stamp_dir/wine32-attempt.log
    codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
    {
        if ! dpkg --print-foreign-architectures | grep -qx i386; then
            $SUDO dpkg --add-architecture i386
            $SUDO apt-get update -qq || true
        fi
        apt_wine32 || { [ -n "$codename" ] && install_wine32_pinned "$codename"; }
    } >"$log" 2>&1 && installed=yes || installed=no
    if [ "$installed" = yes ]; then
        rm -f "$stamp"
        echo "setup: wine32 installed"
    else
        touch "$stamp"
        echo "setup: wine32:i386 could not be installed (see $log); the i686 tests will be skipped"
    fi
fi
