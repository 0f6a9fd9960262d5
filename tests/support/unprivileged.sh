#!/usr/bin/env bash
# Runs a test of a test program, copied together with the files that it needs, as an unprivileged
# user: as nobody if root runs this script.
# usage: unprivileged.sh PROGRAM TEST FILE...
set -euo pipefail
program=$1
test=$2
shift 2

[[ $EUID -ne 0 ]] && exec "$program" "$test"

# The user nobody cannot enter every folder in which root builds.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$program" "$@" "$work"
if [[ ${LSAN_OPTIONS:-} =~ suppressions=([^:]*) ]]; then
    cp "${BASH_REMATCH[1]}" "$work/suppressions"
    export LSAN_OPTIONS="${LSAN_OPTIONS/"${BASH_REMATCH[1]}"/$work/suppressions}"
fi
chown -R nobody "$work"
cd "$work"
setpriv --reuid=nobody --regid=nogroup --clear-groups \
    env HOME="$work" "./$(basename "$program")" "$test"
