#!/usr/bin/env bash
# Installs the missing Debian packages of the named groups. Does not access the network if none are
# missing. usage: scripts/packages.sh GROUP...
set -euo pipefail

declare -A packages=(
    [build]="g++ cmake ninja-build qt6-base-dev qt6-serialport-dev qt6-serialbus-dev
        libcli11-dev libqcustomplot-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools"
    # The icons of the themes need the SVG plug-in, a separate package since Debian 13. Without a font
    # the window shows boxes instead of letters. Qt's own catalogues translate the standard buttons.
    [window]="qt6-svg-plugins|libqt6svg6 fonts-dejavu-core fonts-noto-cjk qt6-translations-l10n
        ca-certificates"
    [test]="libmodbus-dev mold python3-jsonschema"
    # The sanitizers' library is a package of the compiler's version; llvm shows the lines in stacks.
    [clang]="clang libclang-rt-VERSIONdev llvm"
    [package]="dpkg-dev file lintian desktop-file-utils appstream man-db"
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

clang_version() {
    LC_ALL=C apt-cache depends clang 2>/dev/null |
        sed --quiet 's/.*Depends: clang-\([0-9]*\)$/\1-/p' || true # unknown before apt-get update
}

# Of alternatives separated by |, prints the first that is installed or available, or else the last.
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
            [[ $package != *VERSION* ]] || package=${package/VERSION/$(clang_version)}
            package=$(choose "$package")
            installed "$package" || missing+=("$package")
        done
    done
}

find_missing "$@"
[[ ${#missing[@]} -eq 0 ]] && exit 0

if ! command -v apt-get >/dev/null; then
    echo "There is no apt-get. Install the equivalents of these packages: ${missing[*]}" >&2
    exit 1
fi
as_root env DEBIAN_FRONTEND=noninteractive apt-get update
find_missing "$@" # apt-get update may have made other alternatives available
echo "Installing ${missing[*]}"
as_root env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends \
    "${missing[@]}"
