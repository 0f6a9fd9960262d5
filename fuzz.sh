#!/usr/bin/env bash
# Installs missing packages, builds the fuzzers with clang and runs them one after the other, each
# starting with its stored corpus. Exit status 0 if there are no findings. usage: ./fuzz.sh [SECONDS]
# SECONDS: for each target, 60 by default. New inputs stay in build/fuzz/corpus for the next run.
set -euo pipefail
cd "$(dirname "$0")"

seconds=${1:-60}
if [[ ! $seconds =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: $0 [SECONDS]" >&2
    exit 2
fi

scripts/packages.sh build clang
cmake --preset fuzz --log-level=NOTICE
cmake --build --preset fuzz

export ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1

# statistic NAME LOG: one value of the statistics at the end of a fuzzer log.
statistic() {
    awk -v name="stat::$1:" '$1 == name { print $2 }' "$2"
}

status=0
table=$(printf '%-15s %12s %8s %9s' target execs seconds findings)
for stored in fuzz/corpus/*/; do
    target=$(basename "$stored")
    work=build/fuzz/corpus/$target
    findings=build/fuzz/findings/$target
    log=build/fuzz/$target.log
    mkdir -p "$work"
    rm -rf "$findings"
    mkdir -p "$findings"
    options=()
    if [[ -f fuzz/dictionaries/$target.dict ]]; then
        options+=("-dict=fuzz/dictionaries/$target.dict")
    fi
    echo "$target..."
    begin=$SECONDS
    failed=0
    "build/fuzz/bin/fuzz_$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 \
        -print_final_stats=1 -artifact_prefix="$findings/" \
        "${options[@]}" "$work" "$stored" >"$log" 2>&1 || failed=1
    if [[ $failed -ne 0 ]]; then
        status=1
        tail -n 40 "$log"
        echo "Inputs are in $findings, the full output is in $log"
    fi
    execs=$(statistic number_of_executed_units "$log")
    table+=$(printf '\n%-15s %12s %8d %9d' "$target" "${execs:-?}" $((SECONDS - begin)) "$failed")
done
echo "$table"
exit "$status"
