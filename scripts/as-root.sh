#!/usr/bin/env bash
# Runs a command as root, with sudo if necessary. usage: scripts/as-root.sh COMMAND...
set -euo pipefail

if [[ $EUID -eq 0 ]]; then
    exec "$@"
elif command -v sudo >/dev/null; then
    exec sudo "$@"
fi
echo "This needs root and there is no sudo. Run as root: $*" >&2
exit 1
