#!/usr/bin/env bash
# Installs missing packages, builds the optimised programs and runs the benchmarks. Exit status 0 if
# every figure is within its limit.
set -euo pipefail
cd "$(dirname "$0")"

scripts/packages.sh build window
cmake --preset release --log-level=NOTICE
cmake --build --preset release --target vanto-hand bench_exchange bench_run bench_halt bench_sequence bench_table bench_modbus bench_telemetry bench_monitor bench_firmware bench_startup bench_vantoctl

echo "$(nproc) processors, load $(cut -d ' ' -f 1 /proc/loadavg), commit $(git rev-parse --short HEAD 2>/dev/null || echo unknown)"
status=0
for program in bench_exchange bench_run bench_halt bench_sequence bench_table bench_modbus bench_telemetry bench_monitor bench_firmware bench_startup bench_vantoctl; do
    "build/release/bin/$program" || status=1
done
exit "$status"
