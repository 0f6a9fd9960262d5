#!/usr/bin/env bash
# Checks the format of the sources, and without --format also what clang-tidy finds in them. Generated
# files are left out. usage: scripts/lint.sh [--format]
set -euo pipefail
cd "$(dirname "$0")/.."

format_version=14 # of Debian 12; others break lines elsewhere

list_sources() {
    local files
    files=$(git ls-files "$@")
    [[ -n $files ]] || { echo "git lists no sources here." >&2; exit 1; }
    printf '%s\n' "$files"
}

# A form is used by the class of its name only, and a conversation is begun by the call object only.
check_structure() {
    local file match name failed=
    while IFS=: read -r file match; do
        name=${match#*::} name=${name#ui_}
        if [[ $(basename "${file%.*}") != "${name,,}" ]]; then
            echo "$file: uses $match, the form of another class" >&2
            failed=yes
        fi
    done < <(git grep --only-matching --extended-regexp '\<Ui::[A-Za-z]+|\<ui_[a-z]+' -- \
        '*.cpp' '*.h' ':!bench')
    if git grep --line-number --extended-regexp '\<Conversation +[a-z_]+ *[;({]|\<Conversation *[({]' -- \
        '*.cpp' '*.h' ':!protocol/conversation.*' ':!protocol/handcall.h' >&2; then
        echo "These begin a conversation themselves; HandCall or LineHold does it." >&2
        failed=yes
    fi
    [[ -z $failed ]] || exit 1
    echo "Structure: forms and conversations are used where they belong."
}

check_structure
scripts/packages.sh format
formatter=$(command -v clang-format-$format_version || command -v clang-format)
if [[ $("$formatter" --version) == *"version $format_version."* ]]; then
    list_sources '*.cpp' '*.h' | xargs "$formatter" --dry-run --Werror
    echo "Format: $(list_sources '*.cpp' '*.h' | wc --lines) files, none would be changed."
else
    echo "Format: not checked, as this is $("$formatter" --version), not version $format_version."
fi
[[ ${1:-} == --format ]] && exit

# Without precompiled headers, which are GCC's; of what is built only generated headers are needed.
scripts/packages.sh build window test tidy
cmake --preset debug -B build/lint -DVANTO_QUICK_BUILD=OFF -DVANTO_BENCH=ON --log-level=NOTICE
ninja -C build/lint -t targets all | sed --quiet 's/^\([^:]*_autogen\): phony$/\1/p' |
    xargs cmake --build build/lint --target >/dev/null
echo "clang-tidy: $(list_sources '*.cpp' | wc --lines) files"
list_sources '*.cpp' | xargs --max-procs="$(nproc)" --max-args=4 \
    clang-tidy --quiet -p build/lint --warnings-as-errors='*' 2> >(grep --invert-match \
        --extended-regexp '^[0-9]+ warnings? (generated|treated as error)' >&2)
echo "clang-tidy: no finding."
