#!/usr/bin/env bash
# Runs a command of this repository on a minimal Debian: creates the installation in a separate folder,
# clones the last commit into it, runs the command there and reports the result. An archive of the
# installation without the clone is kept for the next run.
# usage: scripts/bare.sh RELEASE COMMAND...        e.g. scripts/bare.sh trixie ./test.sh
# Variables: VANTO_BARE, the folder, by default /var/tmp/vanto-bare; VANTO_MIRROR, the package mirror;
# VANTO_WARNINGS_AS_ERRORS.
set -euo pipefail
self=$(realpath "$0")
cd "$(dirname "$self")/.."

release=${1:?usage: $0 RELEASE COMMAND...}
shift
[[ $# -gt 0 ]] || { echo "usage: $0 RELEASE COMMAND..." >&2; exit 2; }
if [[ $EUID -ne 0 ]]; then
    exec scripts/as-root.sh env VANTO_BARE="${VANTO_BARE:-}" VANTO_MIRROR="${VANTO_MIRROR:-}" \
        VANTO_WARNINGS_AS_ERRORS="${VANTO_WARNINGS_AS_ERRORS:-}" "$self" "$release" "$@"
fi

folder=${VANTO_BARE:-/var/tmp/vanto-bare}
mirror=${VANTO_MIRROR:-http://deb.debian.org/debian}
archive=$folder/$release.tar
root=$folder/$release-$$
log=$folder/$release$(printf -- '-%s' "$*" | tr --complement --squeeze-repeats '[:alnum:].' - | cut --bytes 1-60).log

clean_up() {
    # Removing the folder must not remove /dev/pts or other mounts.
    local mount_point
    for mount_point in dev/pts dev proc .; do
        mountpoint --quiet "$root/$mount_point" && umount "$root/$mount_point"
    done
    rm -rf --one-file-system "$root"
}

scripts/packages.sh bare
mkdir -p "$folder" "$root"
trap clean_up EXIT
trap 'exit 130' INT TERM
if [[ ! -e $archive ]]; then
    echo "Creating a minimal $release in $folder"
    debootstrap --variant=minbase "$release" "$root" "$mirror" >"$folder/$release-debootstrap.log"
    tar --create --file "$archive.part" --directory "$root" .
    mv "$archive.part" "$archive"
else
    tar --extract --file "$archive" --directory "$root"
fi
mount --bind "$root" "$root" # tests with a mount namespace need a root that is a mount point
mount -t proc proc "$root/proc"
mount --bind /dev "$root/dev"
mount --bind /dev/pts "$root/dev/pts"
cp /etc/resolv.conf "$root/etc/resolv.conf"
git clone --quiet --no-hardlinks . "$root/repository"

commit=$(git rev-parse --short HEAD)
echo "$release, commit $commit: $*"
start=$SECONDS
status=0
env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
    ${VANTO_WARNINGS_AS_ERRORS:+VANTO_WARNINGS_AS_ERRORS="$VANTO_WARNINGS_AS_ERRORS"} \
    chroot "$root" bash -c 'cd /repository && "$@"' bash "$@" >"$log" 2>&1 </dev/null || status=$?
tail --lines 5 "$log"
printf '%s, commit %s: %s: status %d after %d:%02d, %d warnings; log: %s\n' "$release" "$commit" \
    "$*" "$status" $(((SECONDS - start) / 60)) $(((SECONDS - start) % 60)) \
    "$(grep --count --ignore-case 'warning:' "$log" || true)" "$log"
exit "$status"
