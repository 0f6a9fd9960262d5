#!/usr/bin/env bash
# Installs those Debian packages of the named groups that are missing; asks no server when all of
# them are there. usage: scripts/packages.sh GROUP...
set -euo pipefail

declare -A packages=(
    [build]="g++ cmake ninja-build qt6-base-dev qt6-serialport-dev qt6-serialbus-dev
        qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools"
    # The icons of the themes are SVG, whose plug-in is a package of its own since Debian 13; without
    # a font the window shows boxes for letters. The standard buttons are translated by Qt's own
    # catalogues.
    [window]="qt6-svg-plugins|libqt6svg6 fonts-dejavu-core fonts-noto-cjk qt6-translations-l10n
        ca-certificates"
    [test]="libmodbus-dev mold"
    [package]="dpkg-dev file lintian desktop-file-utils appstream man-db"
    [fuzz]="clang"
    [coverage]="gcovr"
    [format]="clang-format git"
    [tidy]="clang-tidy"
    [bare]="debootstrap debian-archive-keyring git"
)
if [[ -n ${WAYLAND_DISPLAY:-} ]]; then
    packages[window]+=" qt6-wayland"
fi

installed() {
    [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# Of names separated by | the first that is installed or can be, else the last.
choose() {
    local names name
    IFS='|' read -ra names <<<"$1"
    for name in "${names[@]}"; do
        if installed "$name" || apt-cache show "$name" >/dev/null 2>&1; then
            break
        fi
    done
    echo "$name"
}

as_root() {
    "$(dirname "$0")/as-root.sh" "$@"
}

find_missing() {
    local group package
    missing=()
    for group in "$@"; do
        for package in ${packages[$group]:?no such group}; do
            package=$(choose "$package")
            installed "$package" || missing+=("$package")
        done
    done
}

find_missing "$@"
[[ ${#missing[@]} -eq 0 ]] && exit 0

if ! command -v apt-get >/dev/null; then
    echo "No apt-get here. Install what is the like of: ${missing[*]}" >&2
    exit 1
fi
as_root env DEBIAN_FRONTEND=noninteractive apt-get update
find_missing "$@" # more names are known now
echo "Installing ${missing[*]}"
as_root env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends \
    "${missing[@]}"
