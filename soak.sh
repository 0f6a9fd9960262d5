#!/usr/bin/env bash
# Uses the real window at random for MINUTES over each protocol, with sanitizers, then stops plays,
# halts and unplugs the hand, ends or kills the program at random moments, and opens a port with vantoctl
# and the window in turn. Exit status 0 if there are no findings.
# usage: ./soak.sh MINUTES [SEED]
set -euo pipefail
cd "$(dirname "$0")"

minutes=${1:?usage: $0 MINUTES [SEED]}
seed=${2:-$RANDOM}
scripts/packages.sh build window clang
scripts/build-asan.sh --target vanto-soak vanto-hand vantoctl

export ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1
export LSAN_OPTIONS=suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
status=0
for protocol in serialctrl modbus; do
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --seconds $((60 * minutes)) || status=1
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --stops 200 || status=1
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --losses 100 --patience 2 || status=1
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --halts 500 --patience 2 || status=1
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --endings $((10 * minutes)) || status=1
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --alternate $((10 * minutes)) --patience 4 || status=1
done
build/asan/bin/vanto-soak --seed "$seed" --edits 1000 || status=1
build/asan/bin/vanto-soak --seed "$seed" --kills 100 --patience 2 || status=1
exit "$status"
