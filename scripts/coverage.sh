#!/usr/bin/env bash
# Runs the tests on an instrumented build and reports the line coverage: as a table, as pages in
# build/coverage/report, and as a list of the files with lines that no test reaches, most of them
# first, in build/coverage/unreached.txt. The report excludes tests, benchmarks, developer tools and generated code.
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
gcovr -j "$(nproc)" --root . --object-directory build/coverage --exclude-throw-branches \
    --exclude build/ --exclude tests/ --exclude bench/ --exclude fuzz/ --exclude soak/ \
    --exclude tour/ --exclude windowdriver/ --html-details build/coverage/report/index.html \
    --txt build/coverage/report.txt --csv build/coverage/report.csv --print-summary
cat build/coverage/report.txt
# The columns of the CSV file are file name, lines, reached lines, ...
awk -F, 'NR > 1 && $2 > $3 { printf "%6d of %5d  %s\n", $2 - $3, $2, $1 }' build/coverage/report.csv |
    sort -rn | tee build/coverage/unreached.txt
exit "$status"
