#!/usr/bin/env bash
# Checks the structure and the format of the sources and, without --format, also runs clang-tidy.
# Generated files are excluded. usage: scripts/lint.sh [--format]
set -euo pipefail
cd "$(dirname "$0")/.."

format_version=14 # the version in Debian 12; others break lines differently

list_sources() {
    local files
    files=$(git ls-files "$@")
    [[ -n $files ]] || { echo "git finds no sources here." >&2; exit 1; }
    printf '%s\n' "$files"
}

# Only the class of the same name may use a form, and only HandCall and LineHold may start a
# conversation.
check_structure() {
    local file match name failed=
    while IFS=: read -r file match; do
        name=${match#*::} name=${name#ui_}
        if [[ $(basename "${file%.*}") != "${name,,}" ]]; then
            echo "$file: uses $match, which is the form of another class" >&2
            failed=yes
        fi
    done < <(git grep --only-matching --extended-regexp '\<Ui::[A-Za-z]+|\<ui_[a-z]+' -- \
        '*.cpp' '*.h' ':!bench')
    if git grep --line-number --extended-regexp '\<Conversation +[a-z_]+ *[;({]|\<Conversation *[({]' -- \
        '*.cpp' '*.h' ':!protocol/conversation.*' ':!protocol/handcall.h' >&2; then
        echo "The lines above start a conversation; use HandCall or LineHold instead." >&2
        failed=yes
    fi
    [[ -z $failed ]] || exit 1
    echo "Structure: only the right classes use forms and conversations."
}

check_structure
scripts/packages.sh format
formatter=$(command -v clang-format-$format_version || command -v clang-format)
if [[ $("$formatter" --version) == *"version $format_version."* ]]; then
    list_sources '*.cpp' '*.h' | xargs "$formatter" --dry-run --Werror
    echo "Format: $(list_sources '*.cpp' '*.h' | wc --lines) files, no changes needed."
else
    echo "Format: not checked; version $format_version is required, this is $("$formatter" --version)."
fi
[[ ${1:-} == --format ]] && exit

# clang-tidy cannot read GCC's precompiled headers. It needs only the generated headers to be built.
scripts/packages.sh build window test tidy
cmake --preset debug -B build/lint -DVANTO_QUICK_BUILD=OFF -DVANTO_BENCH=ON --log-level=NOTICE
ninja -C build/lint -t targets all |
    sed --quiet --expression 's/^\([^:]*_autogen\): phony$/\1/p' \
        --expression 's/^\(bench\/ui_.*\): CUSTOM_COMMAND$/\1/p' |
    xargs cmake --build build/lint --target >/dev/null
echo "clang-tidy $(clang-tidy --version | grep --only-matching 'version [0-9.]*'): $(list_sources '*.cpp' | wc --lines) files"
list_sources '*.cpp' | xargs --max-procs="$(nproc)" --max-args=4 \
    clang-tidy --quiet -p build/lint --warnings-as-errors='*' 2> >(grep --invert-match \
        --extended-regexp '^[0-9]+ warnings? (generated|treated as error)' >&2)
echo "clang-tidy: no findings."
