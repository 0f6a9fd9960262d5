#!/usr/bin/env bash
# Installs missing packages, builds the release programs, builds everything with sanitizers, and runs
# all tests with sanitizers. Arguments go to ctest. With --package it tests the Debian package instead,
# with --coverage it reports the test coverage, and with --lint it checks the sources.
set -euo pipefail
cd "$(dirname "$0")"

if [[ ${1:-} == --package ]]; then
    shift
    exec scripts/package.sh "$@"
elif [[ ${1:-} == --coverage ]]; then
    shift
    exec scripts/coverage.sh "$@"
elif [[ ${1:-} == --lint ]]; then
    shift
    exec scripts/lint.sh "$@"
fi

scripts/packages.sh build window test
# The compiler finds some warnings only while it optimises.
cmake --preset release --log-level=NOTICE
cmake --build --preset release --target VantoSetting vanto-hand
cmake --preset asan --log-level=NOTICE
cmake --build --preset asan
exec ctest --preset asan "$@"
