#!/usr/bin/env bash
# Runs every fuzz target for SECONDS each (default 60), two at a time, from an existing build:
#   cmake --preset fuzz && cmake --build --preset fuzz -j2 && bash scripts/fuzz.sh 60
# Each target starts from a scratch copy of its seed corpus (fuzz/corpus/ is never written) with
# the dictionary fuzz/sql.dict. An input that runs longer than the per-input timeout counts as a
# hang, leaks are reported, and every crash, hang or leak leaves its input in
# build-fuzz/artifacts/. Exits non-zero when any target fails.
#
# Environment: FUZZ_REPLAY_ONLY (see below), FUZZ_BUILD_DIR (default build-fuzz), FUZZ_JOBS (default 2),
# FUZZ_TIMEOUT (seconds per input, default 10), FUZZ_SEED (libFuzzer's random seed; CI fixes
# it so that a run can be replayed exactly and a pass does not depend on luck; default: a new
# seed each run).
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=${1:-60}
if ! [[ "$seconds" =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: scripts/fuzz.sh [SECONDS]   (seconds per target, default 60)" >&2
    exit 2
fi
build=${FUZZ_BUILD_DIR:-build-fuzz}
jobs=${FUZZ_JOBS:-2}
timeout=${FUZZ_TIMEOUT:-10}
seed=${FUZZ_SEED:-0}
# Targets named in FUZZ_REPLAY_ONLY (blank-separated) only run their seed corpus once instead
# of fuzzing: for a target with known open findings, so that its regressions still fail.
replay_only=" ${FUZZ_REPLAY_ONLY:-} "

targets=(scanner parse_generic parse_interbase1 parse_interbase3 parse_firebird1
         parse_firebird3 parse_mysql roundtrip)

for target in "${targets[@]}"; do
    if [[ ! -x "$build/bin/vd_fuzz_$target" ]]; then
        echo "fuzz.sh: $build/bin/vd_fuzz_$target is missing;" \
             "build it first: cmake --preset fuzz && cmake --build --preset fuzz -j2" >&2
        exit 2
    fi
    if [[ ! -d "fuzz/corpus/$target" ]]; then
        echo "fuzz.sh: no seed corpus fuzz/corpus/$target" >&2
        exit 2
    fi
done

artifacts="$build/artifacts"
logs="$build/fuzz-logs"
mkdir -p "$artifacts" "$logs"
scratch=$(mktemp -d "${TMPDIR:-/tmp}/vd-fuzz.XXXXXX")
trap 'rm -rf "$scratch"' EXIT

export ASAN_OPTIONS="detect_leaks=1${ASAN_OPTIONS:+:$ASAN_OPTIONS}"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1${UBSAN_OPTIONS:+:$UBSAN_OPTIONS}"

# One target: the fuzzer's exit status and its wall time go to files beside its log.
run_target() {
    local target=$1
    local corpus="$scratch/$target"
    local log="$logs/vd_fuzz_$target.log"
    cp -r "fuzz/corpus/$target" "$corpus"
    local start status=0
    start=$(date +%s)
    local budget=(-max_total_time="$seconds")
    [[ "$replay_only" == *" $target "* ]] && budget=(-runs=0)
    "$build/bin/vd_fuzz_$target" "$corpus" \
        -dict=fuzz/sql.dict \
        "${budget[@]}" \
        -timeout="$timeout" \
        -seed="$seed" \
        -detect_leaks=1 \
        -print_final_stats=1 \
        -artifact_prefix="$artifacts/vd_fuzz_$target-" \
        >"$log" 2>&1 || status=$?
    echo "$status" >"$log.status"
    echo $(($(date +%s) - start)) >"$log.seconds"
}

# Two at a time (or FUZZ_JOBS): start a target whenever a slot is free.
running=0
for target in "${targets[@]}"; do
    if ((running >= jobs)); then
        wait -n || true
        running=$((running - 1))
    fi
    run_target "$target" &
    running=$((running + 1))
done
wait || true

failed=0
for target in "${targets[@]}"; do
    log="$logs/vd_fuzz_$target.log"
    status=$(cat "$log.status" 2>/dev/null || echo 1)
    took=$(cat "$log.seconds" 2>/dev/null || echo '?')
    execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
    if [[ -z "$execs" ]]; then
        # A crash may end the run before the final statistics: take the last progress line.
        execs=$(sed -n 's/^#\([0-9]*\).*/\1/p' "$log" | tail -n 1)
    fi
    result=ok
    if [[ "$status" != 0 ]]; then
        failed=1
        check=$(grep -a -m 1 '^vd_fuzz' "$log" || true)
        if [[ -n "$check" ]]; then
            result="FAILED: $check"
        elif grep -q 'terminate called after throwing' "$log"; then
            result="FAILED (an exception escaped)"
        elif grep -q 'ERROR: libFuzzer: timeout' "$log"; then
            result="FAILED (hang: an input ran longer than ${timeout} s)"
        elif grep -q 'ERROR: LeakSanitizer' "$log"; then
            result="FAILED (leak)"
        elif grep -q 'ERROR: AddressSanitizer' "$log"; then
            result="FAILED (AddressSanitizer)"
        elif grep -q 'runtime error:' "$log"; then
            result="FAILED (UndefinedBehaviorSanitizer)"
        elif grep -q 'out-of-memory' "$log"; then
            result="FAILED (out of memory)"
        else
            result="FAILED (crash, exit status $status)"
        fi
    fi
    printf '%-26s %12s execs %5s s  %s\n' "vd_fuzz_$target" "${execs:-0}" "$took" "$result"
done

if ((failed)); then
    echo
    for target in "${targets[@]}"; do
        log="$logs/vd_fuzz_$target.log"
        [[ "$(cat "$log.status" 2>/dev/null || echo 1)" == 0 ]] && continue
        echo "=== vd_fuzz_$target: end of $log"
        tail -n 60 "$log"
        echo
    done
    echo "fuzz.sh: failures; the inputs are in $artifacts/" \
         "(replay one with $build/bin/vd_fuzz_TARGET FILE)" >&2
    exit 1
fi
