#!/usr/bin/env bash
# Runs a command as root, with sudo if need be. usage: scripts/as-root.sh COMMAND...
set -euo pipefail

if [[ $EUID -eq 0 ]]; then
    exec "$@"
elif command -v sudo >/dev/null; then
    exec sudo "$@"
fi
echo "Neither root nor sudo; as root, run: $*" >&2
exit 1
