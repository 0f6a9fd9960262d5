#!/usr/bin/env bash
# Installs missing packages, builds, and starts the program with a simulated hand. Without a display
# it runs the tour instead, which saves screenshots in build/tour.
set -euo pipefail
cd "$(dirname "$0")"
programs=$PWD/build/release/bin
link=$PWD/build/hand

wayland_usable() {
    local socket=${WAYLAND_DISPLAY:-}
    [[ -n $socket ]] || return 1
    [[ $socket == /* ]] || socket=${XDG_RUNTIME_DIR:-}/$socket
    [[ -S $socket ]]
}

x11_usable() {
    [[ ${DISPLAY:-} =~ ^(.*):([0-9]+)(\.[0-9]+)?$ ]] || return 1
    local host=${BASH_REMATCH[1]} number=${BASH_REMATCH[2]}
    if [[ -z $host || $host == unix ]]; then
        [[ -S /tmp/.X11-unix/X$number ]] || grep -qs "@/tmp/.X11-unix/X$number\$" /proc/net/unix
    else
        timeout 3 bash -c ": </dev/tcp/$host/$((6000 + number))" 2>/dev/null
    fi
}

scripts/packages.sh build window
cmake --preset release --log-level=NOTICE
cmake --build --preset release --target VantoSetting vanto-hand vanto-tour

if ! wayland_usable && ! x11_usable; then
    echo "No display: running the tour instead; its screenshots are saved in build/tour."
    exec "$programs/vanto-tour" --offscreen --output build/tour
fi

# The hand runs until its standard input ends, so it never outlives this script.
coproc HAND { exec "$programs/vanto-hand" --node 2 --link "$link"; }
hand_pid=$HAND_PID
if ! read -r device <&"${HAND[0]}"; then
    echo "The simulated hand did not start." >&2
    exit 1
fi
echo "A simulated hand answers as node 2 on $link ($device)."

status=0
VANTO_PORTS=$link${VANTO_PORTS:+:$VANTO_PORTS} "$programs/VantoSetting" "$@" || status=$?
exec {HAND[1]}>&-
wait "$hand_pid" || true
exit "$status"
