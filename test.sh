#!/usr/bin/env bash
# Installs what is missing, builds with the sanitizers and runs all tests. Arguments go to ctest.
set -euo pipefail
cd "$(dirname "$0")"

scripts/packages.sh build window
cmake --preset asan --log-level=NOTICE
cmake --build --preset asan
exec ctest --preset asan "$@"
