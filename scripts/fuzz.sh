#!/bin/sh
# Fuzzes the library's parsers with libFuzzer under AddressSanitizer and
# UndefinedBehaviorSanitizer, built for this machine with clang (build/fuzz).
#   fuzz.sh [TARGET|all] [SECONDS]     default: all targets, 60 s each
# Before fuzzing, every input in fuzz/regressions/<target>/ is replayed, and
# the logic headers are compiled on their own by this compiler too. Targets
# run two at a time (TQM_FUZZ_JOBS to change). Corpora grow in
# build/fuzz/corpus/<target>, starting from the seeds each target writes.
# A fault stops its target; the input is kept as build/fuzz/crash-<target>-*:
# once fixed, copy it into fuzz/regressions/<target>/ so that every run
# replays it.
#
# A new target: fuzz/<name>.cpp (see fuzz/FuzzSupport.h) and one line in
# fuzz/CMakeLists.txt naming the library sources it needs.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/fuzz
target=${1:-all}
seconds=${2:-60}
jobs=${TQM_FUZZ_JOBS:-2}

cmake -S "$root/fuzz" -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build "$build"

echo "== fuzz: headers of the logic compile on their own (clang)"
for header in $(cd "$root" && ls */logic/*.h fuzz/*.h); do
    clang++ -std=c++17 -Wno-pragma-once-outside-header -I"$root/fuzz/host" -I"$root" -fsyntax-only -x c++ "$root/$header"
done

if [ "$target" = all ]; then
    targets=$(cd "$build" && ls fuzz_* | sed 's/^fuzz_//')
else
    [ -x "$build/fuzz_$target" ] || { echo "fuzz: no target $target" >&2; exit 2; }
    targets=$target
fi

# One target: its regressions, its seeds, then the timed run.
run_one() {
    t=$1
    exe=$build/fuzz_$t
    corpus=$build/corpus/$t
    mkdir -p "$corpus"
    regressions=$root/fuzz/regressions/$t
    if [ -d "$regressions" ] && [ -n "$(ls -A "$regressions")" ]; then
        "$exe" -runs=0 "$regressions"/* >"$build/regressions-$t.log" 2>&1 ||
            { echo "fuzz $t: a regression input fails again:"; tail -30 "$build/regressions-$t.log"; return 1; }
    fi
    TQM_FUZZ_SEEDS=$corpus "$exe"
    if "$exe" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -print_final_stats=1 \
            -artifact_prefix="$build/crash-$t-" "$corpus" >"$build/run-$t.log" 2>&1; then
        echo "fuzz $t: $(grep -m1 '^stat::number_of_executed_units' "$build/run-$t.log" | sed 's/.*: *//') runs, no fault"
    else
        echo "fuzz $t: FAULT"
        grep -A25 -m1 -E 'ERROR|check failed|runtime error' "$build/run-$t.log" || tail -30 "$build/run-$t.log"
        return 1
    fi
}

status=0
pids=""
running=0
for t in $targets; do
    run_one "$t" &
    pids="$pids $!"
    running=$((running + 1))
    if [ "$running" -ge "$jobs" ]; then
        for p in $pids; do wait "$p" || status=1; done
        pids=""
        running=0
    fi
done
for p in $pids; do wait "$p" || status=1; done
[ "$status" -eq 0 ] && echo "== fuzz: all targets ran without a fault" || echo "== fuzz: FAULTS FOUND"
exit $status
