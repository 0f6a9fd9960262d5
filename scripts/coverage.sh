#!/usr/bin/env bash
# Runs the tests on an instrumented build and reports the line coverage: as a table, and as pages in
# build/coverage/report. The report excludes tests, benchmarks, developer tools and generated code.
# usage: scripts/coverage.sh [CTEST-ARGUMENT...]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build window test coverage
cmake --preset coverage --log-level=NOTICE
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
status=0
ctest --preset coverage "$@" || status=$?
mkdir -p build/coverage/report
gcovr --root . --object-directory build/coverage --exclude-throw-branches \
    --exclude build/ --exclude tests/ --exclude bench/ --exclude fuzz/ --exclude soak/ \
    --exclude tour/ --exclude windowdriver/ --html-details build/coverage/report/index.html \
    --txt build/coverage/report.txt --print-summary
cat build/coverage/report.txt
exit "$status"
