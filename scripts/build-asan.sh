#!/usr/bin/env bash
# Builds with sanitizers, by clang. usage: scripts/build-asan.sh [CMAKE-BUILD-ARGUMENT...]
set -euo pipefail
cd "$(dirname "$0")/.."

# With another compiler in its cache CMake would forget the values of the preset.
options=()
if ! grep --quiet --no-messages '^CMAKE_CXX_COMPILER:.*clang' build/asan/CMakeCache.txt; then
    options=(--fresh)
fi
cmake --preset asan --log-level=NOTICE "${options[@]}"
cmake --build --preset asan "$@"
