#!/usr/bin/env bash
# Builds the Debian packages, inspects them, installs them, tests the installed programs and purges
# them again. Packages and log remain in build/package. usage: scripts/package.sh
set -euo pipefail
cd "$(dirname "$0")/.."

name=vantosetting
app_id=org.example.vantosetting
programs=/usr/lib/$name
release=build/release
output=build/package
export LC_ALL=C.UTF-8

work=
purge_wanted=no
packages=()

step() {
    printf '\n== %s\n' "$*"
}

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

clean_up() {
    local status=$?
    trap - EXIT
    if [[ $purge_wanted == yes ]]; then
        scripts/as-root.sh dpkg --purge "$name" vantoctl || status=1
    fi
    rm -rf "$work"
    exit "$status"
}

package_status() {
    dpkg-query --show --showformat='${db:Status-Status}' "$name" 2>/dev/null || true
}

# Runs a command as an unprivileged user, to detect files and actions that need root.
as_user() {
    if [[ $EUID -eq 0 ]]; then
        setpriv --reuid=nobody --regid=nogroup --clear-groups "$@"
    else
        "$@"
    fi
}

build_package() {
    step "Building"
    cmake --preset release --log-level=NOTICE
    cmake --build --preset release --target VantoSetting vanto-hand vantoctl vanto_package_files
    rm -f "$output"/*.deb
    cpack -G DEB --config "$release/CPackConfig.cmake" -B "$output"
    rm -rf "$output/_CPack_Packages"
    packages=("$output"/*.deb)
    [[ ${#packages[@]} -eq 2 ]] || fail "there are ${#packages[@]} packages"
    local package
    for package in "${packages[@]}"; do
        dpkg-deb --info "$package"
        dpkg-deb --contents "$package"
    done
}

inspect_package() {
    step "Inspecting ${packages[*]}"
    local package
    for package in "${packages[@]}"; do
        lintian --fail-on error --display-info --pedantic --tag-display-limit 0 "$package"
        dpkg-deb --extract "$package" "$work/tree"
    done
    ! dpkg-deb --field "$output"/vantoctl_*.deb Depends | grep -i 'gui\|widgets' ||
        fail "vantoctl depends on graphical libraries"
    local version
    version=$(dpkg-deb --field "$output"/vantoctl_*.deb Version)
    dpkg-deb --field "$output/$name"_*.deb Depends | grep -qF "vantoctl (= $version)" ||
        fail "$name does not depend on vantoctl $version"
    ! grep -rlF "$PWD/" "$work/tree" || fail "the files above contain the path of the build tree"
    local file dynamic
    for file in "$work"/tree/usr/bin/vanto{-hand,ctl} "$work/tree$programs/VantoSetting"; do
        dynamic=$(readelf --dynamic "$file")
        [[ $dynamic != *RPATH* && $dynamic != *RUNPATH* ]] || fail "$file has a run path"
        [[ $(readelf --sections --wide "$file") != *.symtab* ]] || fail "$file is not stripped"
    done
    local sources=(resources/translations/*.ts) installed=("$work/tree$programs"/i18n/*.qm)
    [[ -e ${sources[0]} ]] || return 0
    [[ -e ${installed[0]} && ${#installed[@]} -eq ${#sources[@]} ]] ||
        fail "not every file of resources/translations is installed as a translation"
}

# Paths of the package that exist on this system.
present_paths() {
    local package path
    for package in "${packages[@]}"; do
        dpkg-deb --fsys-tarfile "$package" | tar --list | while IFS= read -r path; do
            [[ ! -e ${path#.} && ! -L ${path#.} ]] || echo "${path#.}"
        done
    done
}

install_package() {
    step "Installing"
    present_paths >"$work/before"
    purge_wanted=yes
    scripts/as-root.sh env DEBIAN_FRONTEND=noninteractive apt-get install --yes \
        --no-install-recommends "${packages[@]/#/$PWD/}"
    [[ $(package_status) == installed ]] || fail "$name is not installed"
}

check_metadata() {
    step "Menu entry and metadata"
    desktop-file-validate "/usr/share/applications/$app_id.desktop"
    appstreamcli validate --no-net --pedantic --explain \
        "/usr/share/metainfo/$app_id.metainfo.xml"
}

check_manual() {
    step "Manual pages"
    local page complaints
    for page in "$name" vanto-hand vantoctl; do
        complaints=$(MANWIDTH=80 MANROFFSEQ='' man --warnings=all --encoding=UTF-8 --local-file \
            "/usr/share/man/man1/$page.1.gz" 2>&1 >"$work/$page.txt")
        [[ -z $complaints ]] || fail "man $page: $complaints"
        wc --lines "$work/$page.txt"
    done
    local option
    for option in $(vanto-hand --help | grep -o '^  *--[a-z-]*\|, --[a-z]*' | tr -d ' ,'); do
        grep --quiet -e "$option" "$work/vanto-hand.txt" || fail "man vanto-hand lacks $option"
    done
}

check_hand() {
    step "The simulated hand"
    vanto-hand --version
    local port
    port=$(vanto-hand </dev/null)
    [[ $port == /dev/* ]] || fail "vanto-hand printed '$port' instead of a port"
}

# run_program FOLDER COMMAND...: the command must keep running and create setting.ini in FOLDER.
run_program() {
    local folder=$1 seconds=5 status=0 trace=$work/trace
    shift
    (cd / && as_user timeout "$seconds" env "$@") >"$trace" 2>&1 || status=$?
    if [[ $status -ne 124 ]]; then # timeout had to end the command
        cat "$trace"
        fail "the program exited with status $status"
    fi
    echo "ran for $seconds s, with $folder:"
    [[ $(stat --format=%a "$folder") == 700 ]] || fail "other users can access $folder"
    grep '^style=' "$folder/setting.ini" || fail "no theme in $folder/setting.ini"
}

check_cli() {
    step "The command line"
    vantoctl --version
    local file
    for file in bash-completion/completions/vantoctl zsh/vendor-completions/_vantoctl \
        fish/vendor_completions.d/vantoctl.fish; do
        [[ -s /usr/share/$file ]] || fail "no /usr/share/$file"
    done
    coproc vanto-hand --link "$work/hand"
    local port
    read -r port <&"${COPROC[0]}"
    vantoctl --port "$port" --node 2 --patience 20 get firmware
    eval "exec ${COPROC[1]}>&-"
    wait "$COPROC_PID" || true
}

check_program() {
    step "The program"
    local home=$work/home command
    mkdir "$home" "$home/data"
    [[ $EUID -ne 0 ]] || chown -R nobody:nogroup "$home"
    command=$(sed -n 's/^Exec=//p' "/usr/share/applications/$app_id.desktop")
    local clean=(--unset=XDG_DATA_HOME --unset=DISPLAY --unset=WAYLAND_DISPLAY
        --unset=QT_QPA_PLATFORM "XDG_RUNTIME_DIR=$home" "HOME=$home")
    run_program "$home/.local/share/$name" "${clean[@]}" QT_QPA_PLATFORM=offscreen \
        QT_DEBUG_PLUGINS=1 "$command"
    grep --quiet 'libqsvg.so" loaded library' "$work/trace" ||
        fail "no plugin for the SVG images of the themes was loaded"
    # The launcher must pass on its arguments: without this one the program needs a display.
    run_program "$home/data/$name" "${clean[@]}" "XDG_DATA_HOME=$home/data" \
        "$command" -platform offscreen
    run_program "$home/.local/share/$name" "${clean[@]}" XDG_DATA_HOME=relative \
        "$command" -platform offscreen
}

purge_package() {
    step "Purging"
    scripts/as-root.sh dpkg --purge "$name" vantoctl
    purge_wanted=no
    [[ -z $(package_status) ]] || fail "$name is still $(package_status)"
    present_paths | diff "$work/before" - || fail "purging did not remove or restore the paths above"
    echo "No files remain."
}

main() {
    trap clean_up EXIT
    work=$(mktemp -d)
    chmod 755 "$work"
    [[ -z $(package_status) ]] || fail "$name is installed here; purge it before this check"
    scripts/packages.sh build window package
    build_package
    inspect_package
    install_package
    check_metadata
    check_manual
    check_hand
    check_cli
    check_program
    purge_package
    printf '\nAll checks passed: %s\n' "${packages[*]}"
}

mkdir -p "$output"
main 2>&1 | tee "$output/package.log"
