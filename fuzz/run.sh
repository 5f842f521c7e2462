#!/usr/bin/env bash
# usage: run.sh BUILD_DIR SECONDS
#
# Runs every fuzzer of the built tree BUILD_DIR for so many seconds, from the committed corpus and what earlier runs
# added. What is new stays in BUILD_DIR/corpus, what ended a fuzzer in BUILD_DIR/findings; each has a log beside them.
# Fails when there was a finding.
set -euo pipefail

source_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build_dir=$1 seconds=$2
if [[ ! $seconds =~ ^[1-9][0-9]*$ ]]; then
    echo "fuzz: \"$seconds\" is not a number of seconds" >&2
    exit 2
fi

# stat NAME LOG: what the fuzzing library counted; a dash when it did not come to it.
stat() {
    local value
    value=$(sed -n "/^stat::$1: */{s///p;q}" "$2")
    echo "${value:--}"
}

export UBSAN_OPTIONS=print_stacktrace=1
failed=0

# run TARGET LOG ARGUMENT...: the fuzzer on both of its corpora. libpng tells of every broken picture: not in the log.
run() {
    local target=$1 log=$2
    shift 2
    "$build_dir/bin/$target" -timeout=10 -max_len=4096 "$@" -dict="$source_dir/dict/$target.dict" \
        -artifact_prefix="$build_dir/findings/$target-" "$build_dir/corpus/$target" "$source_dir/corpus/$target" \
        2>&1 | grep -v '^libpng ' >"$log" && return
    failed=1
    grep -E '^violated: |ERROR: |runtime error: |^SUMMARY: |Test unit written' "$log" >&2 || tail "$log" >&2
    echo "fuzz: the whole of it is in $log" >&2
    return 1
}

table=("target executions exec/s new-files result")
for source in "$source_dir"/*Fuzzer.cpp; do
    target=$(basename "$source" .cpp)
    corpus=$build_dir/corpus/$target log=$build_dir/$target.log
    mkdir -p "$corpus" "$build_dir/findings"
    before=$(find "$corpus" -type f | wc -l)
    echo "fuzz: $target for $seconds s"
    result=clean
    ASAN_OPTIONS=detect_leaks=0 run "$target" "$log" -max_total_time="$seconds" -print_final_stats=1 || result=FAILED
    # Which leaks are not ours is told by the whole stack of calls, and that takes too long to have all the time.
    ASAN_OPTIONS=fast_unwind_on_malloc=0 LSAN_OPTIONS=suppressions=$source_dir/leaks.supp:print_suppressions=0 \
        run "$target" "$build_dir/$target-leaks.log" -runs=0 || result=FAILED
    after=$(find "$corpus" -type f | wc -l)
    table+=("$target $(stat number_of_executed_units "$log") $(stat average_exec_per_sec "$log") $((after - before)) $result")
done

printf '%s\n' "${table[@]}" | awk '{ printf "%-20s %11s %7s %10s  %s\n", $1, $2, $3, $4, $5 }'
exit "$failed"
