#!/bin/sh
# Renders the program's icon for desktop menus. Needs rsvg-convert.
set -eu
cd "$(dirname "$0")"
for size in 48 256; do
    rsvg-convert --width="$size" --height="$size" --output="$size.png" \
        ../../resources/images/icon.svg
done
