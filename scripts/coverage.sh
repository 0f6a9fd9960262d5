#!/usr/bin/env bash
# Runs the tests on a build that counts, and reports which lines they reach: a table, and pages in
# build/coverage/report. Tests, measuring programs and generated code are left out.
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
