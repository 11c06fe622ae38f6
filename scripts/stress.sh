#!/bin/sh
# Under load, concurrency and faults: runs the stress test program
# (tests/stress) of one build or both, and prints its figures.
#   stress.sh [--short] [--build DIR] [i686|x86_64]...
# Without --short every part runs at full size (minutes); --short is the
# version the normal test run uses (under a minute a part). --build DIR runs
# the program of an existing build folder, as CTest does; otherwise each
# architecture named (both by default) is built first.
#
# The faults of a full disk need a small disk: a tmpfs of 300 KB, mounted for
# the run in BUILD/smalldisk and mapped to the drive T: of the build's Wine
# prefix; those of a read-only one a second tmpfs, BUILD/readonlydisk as R:,
# holding a settings mirror file and a document, mounted read-only (as root,
# a read-only attribute stops no writer under Wine; a read-only file system
# does). Where they cannot be mounted (not root, no rights) those tests skip
# and say why. The last line is "stress: N checks, M failed", N the tests run,
# M those that failed.
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
size=full
builds=""
archs=""
while [ $# -gt 0 ]; do
    case $1 in
        --short) size=short ;;
        --build) builds="$builds $(cd "$2" && pwd)"; shift ;;
        i686|x86_64) archs="$archs $1" ;;
        *) echo "usage: stress.sh [--short] [--build DIR] [i686|x86_64]..." >&2; exit 2 ;;
    esac
    shift
done
if [ -z "$builds" ]; then
    [ -n "$archs" ] || archs="i686 x86_64"
    "$root/scripts/setup.sh" >/dev/null || exit 1
    for arch in $archs; do
        "$root/scripts/build.sh" "$arch" >/dev/null || exit 1
        builds="$builds $root/build/$arch"
    done
fi

checks=0
failed=0
# Unmounts the disks of a build and removes their drive letters.
unmount_disks() {
    rm -f "$1/wineprefix/dosdevices/t:" "$1/wineprefix/dosdevices/r:"
    for disk in "$1/smalldisk" "$1/readonlydisk"; do
        mountpoint -q "$disk" && umount "$disk"
    done
    return 0
}
cleanup() {
    for build in $builds; do
        unmount_disks "$build"
    done
}
trap cleanup EXIT INT TERM

# Mounts a fresh tmpfs of the size at the folder; prints why not.
mount_tmpfs() {  # mount_tmpfs FOLDER SIZE WHAT
    mkdir -p "$1"
    mountpoint -q "$1" && umount "$1" 2>/dev/null
    if ! out=$(mount -t tmpfs -o size="$2" tmpfs "$1" 2>&1); then
        echo "the $3 could not be mounted: ${out:-mount failed} (the full-disk tests need root)"
        return 1
    fi
}

# Mounts the small disk of one build and maps it to T:, and the read-only
# one to R:; prints why not.
small_disk() {
    build=$1
    disk=$build/smalldisk
    mount_tmpfs "$disk" 300k "small disk" || return 1
    mkdir -p "$build/wineprefix/dosdevices"
    ln -sfn "$disk" "$build/wineprefix/dosdevices/t:"

    disk=$build/readonlydisk
    mount_tmpfs "$disk" 64k "read-only disk" || return 1
    # The settings mirror where the library looks for it when the common
    # documents folder is R:\Documents: in the suite's folder beside it.
    mkdir -p "$disk/Documents" "$disk/Tarn-Holmvik/QM5_20/LocalDir"
    printf '[Global]\r\nKept=a value stored before\r\n' >"$disk/Tarn-Holmvik/QM5_20/LocalDir/QM5Global.ini"
    printf '[Old]\r\nKey=the old value\r\n\r\n' >"$disk/Documents/ReadOnly.ini"
    if ! out=$(mount -o remount,ro "$disk" 2>&1); then
        echo "the read-only disk could not be made read-only: ${out:-mount failed}"
        return 1
    fi
    ln -sfn "$disk" "$build/wineprefix/dosdevices/r:"
    return 0
}

for build in $builds; do
    arch=$(sed -n 's/^CMAKE_TOOLCHAIN_FILE:[A-Z]*=.*toolchain-\(.*\)\.cmake$/\1/p' "$build/CMakeCache.txt")
    echo "== stress ($arch, $size)"
    "$root/scripts/wine-prefix.sh" "$arch" "$build/wineprefix" >/dev/null 2>&1
    unset TQM_SMALL_DISK TQM_READONLY_DISK TQM_SMALL_DISK_SKIPPED
    if why=$(small_disk "$build"); then
        export TQM_SMALL_DISK=T: TQM_READONLY_DISK=R:
    else
        export TQM_SMALL_DISK_SKIPPED="$why"
        echo "   $why"
    fi
    export TQM_STRESS=$size
    log=$build/stress-$size.log
    "$root/scripts/wine-run.sh" "$arch" "$build/wineprefix" "$build/bin/stress_test.exe" >"$log" 2>&1
    status=$?
    grep -E '^figure: |^\[  (FAILED|SKIPPED) \] [A-Za-z]|Failure$|^  (Expected|Which is|  Actual|Value of)' "$log" |
        sed 's/^figure: /   /'
    ran=$(sed -n 's/^\[==========\] \([0-9]*\) tests\{0,1\} from .* ran\..*/\1/p' "$log" | tail -1)
    bad=$(sed -n 's/^\[  FAILED  \] \([0-9]*\) tests\{0,1\}, listed below:.*/\1/p' "$log" | tail -1)
    skipped=$(sed -n 's/^\[  SKIPPED \] \([0-9]*\) tests\{0,1\}, listed below:.*/\1/p' "$log" | tail -1)
    if [ -z "$ran" ]; then
        echo "   the stress program did not finish (exit $status); its output: $log"
        ran=1
        bad=1
    fi
    ran=$((ran - ${skipped:-0}))
    checks=$((checks + ran))
    failed=$((failed + ${bad:-0}))
    unmount_disks "$build"
done
echo "stress: $checks checks, $failed failed"
[ "$failed" -eq 0 ]
