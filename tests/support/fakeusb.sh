#!/usr/bin/env bash
# Runs tests of a test program where it can plug in USB serial adapters that do not exist: in a mount
# namespace with empty system folders in place of /dev, /run and /sys, see fakeusb.h. The system does
# not change, and the folders disappear with the last process. Exits with 77 if the system permits no
# namespace.
# usage: fakeusb.sh PROGRAM TEST [FUNCTION...]
set -euo pipefail

if [[ ${1:-} != --inside ]]; then
    namespace=(unshare --mount)
    [[ $EUID -eq 0 ]] || namespace+=(--map-root-user)
    if ! "${namespace[@]}" mount -t tmpfs tmpfs /run; then
        echo "Skipped: this system does not permit a mount namespace." >&2
        exit 77
    fi
    exec "${namespace[@]}" "$0" --inside "$@"
fi
shift

mount -t tmpfs tmpfs /run
mkdir /run/lock # Qt locks ports there; in its absence in /tmp, which parallel tests share
mkdir -p /run/udev/data /run/dev/{pts,shm} /run/sys/class/tty /run/sys/bus/usb-serial/drivers/fake
for device in full null random tty urandom zero; do
    touch "/run/dev/$device"
    mount --bind "/dev/$device" "/run/dev/$device"
done
mount -t devpts -o newinstance,ptmxmode=0666 devpts /run/dev/pts
mount -t tmpfs tmpfs /run/dev/shm
ln -s pts/ptmx /run/dev/ptmx
ln -s /proc/self/fd /run/dev/fd
mount --rbind /run/dev /dev
mount --bind /run/sys /sys

# libudev refuses a /sys that is not of the kernel.
export SYSTEMD_DEVICE_VERIFY_SYSFS=0
export VANTO_FAKE_USB=1
unset XDG_RUNTIME_DIR # is not in the new /run
exec "$@"
