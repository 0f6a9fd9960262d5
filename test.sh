#!/usr/bin/env bash
# Installs what is missing, builds the programs and once more everything with the sanitizers, and runs
# all tests on the latter. Arguments go to ctest. Instead of that, --package tries the Debian package,
# --coverage reports what the tests do not reach, and --lint checks the sources.
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
# Optimised code draws warnings of its own.
cmake --preset release --log-level=NOTICE
cmake --build --preset release --target VantoSetting vanto-hand vanto-tour
cmake --preset asan --log-level=NOTICE
cmake --build --preset asan
exec ctest --preset asan "$@"
