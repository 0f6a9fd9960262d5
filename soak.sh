#!/usr/bin/env bash
# Random use of the real window for MINUTES over each protocol, under sanitizers, and ends of the
# program in the middle of things. Exit status 0 when nothing was found.
#     ./soak.sh MINUTES [SEED]
set -euo pipefail
cd "$(dirname "$0")"

minutes=${1:?"minutes to go on for over each protocol"}
seed=${2:-$RANDOM}
scripts/packages.sh build window
cmake --preset asan --log-level=NOTICE
cmake --build --preset asan --target vanto-soak vanto-hand

status=0
for protocol in serialctrl modbus; do
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --seconds $((60 * minutes)) || status=1
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --stops 200 || status=1
    build/asan/bin/vanto-soak --protocol "$protocol" --seed "$seed" --endings $((10 * minutes)) || status=1
done
exit "$status"
