#!/usr/bin/env bash
# Checks the form of the sources, and without --format also what clang-tidy finds in them. Generated
# files are left out. usage: scripts/lint.sh [--format]
set -euo pipefail
cd "$(dirname "$0")/.."

format_version=14 # of Debian 12; others break lines elsewhere

scripts/packages.sh lint
mapfile -t sources < <(git ls-files '*.cpp' '*.h')

formatter=$(command -v clang-format-$format_version || command -v clang-format)
if [[ $("$formatter" --version) == *"version $format_version."* ]]; then
    "$formatter" --dry-run --Werror "${sources[@]}"
    echo "Format: ${#sources[@]} files, none would be changed."
else
    echo "Format: not checked, as this is $("$formatter" --version), not version $format_version."
fi
[[ ${1:-} == --format ]] && exit

scripts/packages.sh build window test
cmake --preset debug --log-level=NOTICE
cmake --build --preset debug # the sources include generated headers
echo "clang-tidy: $(git ls-files '*.cpp' | wc --lines) files"
git ls-files '*.cpp' | xargs --max-procs="$(nproc)" --max-args=4 \
    clang-tidy --quiet -p build/debug --warnings-as-errors='*' 2> >(grep --invert-match \
        --extended-regexp '^[0-9]+ warnings? (generated|treated as error)' >&2)
echo "clang-tidy: no finding."
