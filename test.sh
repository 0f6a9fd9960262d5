#!/usr/bin/env bash
# Installs missing packages, builds everything with sanitizers, and runs all tests. Arguments go to
# ctest. With --package it tests the Debian package instead, with --coverage it reports the test
# coverage, and with --lint it checks the sources. If VANTO_WARNINGS_AS_ERRORS is set, it also builds
# the optimised programs, because the compiler finds some warnings only while it optimises.
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

scripts/packages.sh build window test clang
if [[ -n ${VANTO_WARNINGS_AS_ERRORS:-} ]]; then
    cmake --preset release --log-level=NOTICE
    cmake --build --preset release --target VantoSetting vantoctl vanto-hand
fi
scripts/build-asan.sh
exec ctest --preset asan "$@"
