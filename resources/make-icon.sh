#!/bin/sh
# Renders images/icon.svg into images/icon.ico. Needs rsvg-convert and icotool.
set -eu
cd "$(dirname "$0")/images"
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT
for size in 16 24 32 48 64 128 256; do
    rsvg-convert --width="$size" --height="$size" --output="$work/$size.png" icon.svg
    # Large sizes stay PNG inside the file; uncompressed they would take 360 kB.
    if [ "$size" -ge 64 ]; then
        set -- "$@" "--raw=$work/$size.png"
    else
        set -- "$@" "$work/$size.png"
    fi
done
icotool --create --output=icon.ico "$@"
