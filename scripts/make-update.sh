#!/usr/bin/env bash
# Writes an update file with reproducible pseudo-random program bytes to standard output. It is for
# the simulated hand only; do not install it on a real hand.
# usage: scripts/make-update.sh TYPE,VERSION RECORDS > FILE.upd     e.g. 1B,01 16
set -euo pipefail

hardware=${1:?usage: $0 TYPE,VERSION RECORDS}
records=${2:?usage: $0 TYPE,VERSION RECORDS}
if [[ ! $hardware =~ ^[0-9A-Fa-f]{1,2},[0-9A-Fa-f]{1,2}$ || ! $records =~ ^[1-9][0-9]*$ ]]; then
    echo "$0: '$hardware' '$records' is not TYPE,VERSION RECORDS" >&2
    exit 2
fi

program_bytes=252 # a record is 256 bytes with length and checksum
crc=0
state=1

put_checked() {
    local byte=$1
    printf '%02X' "$byte"
    crc=$((crc ^ byte << 8))
    for _ in 1 2 3 4 5 6 7 8; do
        crc=$(((crc & 0x8000 ? crc << 1 ^ 0x1021 : crc << 1) & 0xFFFF))
    done
}

printf 'HW:%s\n' "$hardware"
for ((record = 0; record < records; ++record)); do
    printf '%04X' $((program_bytes + 2))
    crc=0xFFFF
    for ((i = 0; i < program_bytes; ++i)); do
        state=$(((state * 1664525 + 1013904223) & 0xFFFFFFFF))
        put_checked $((state >> 24))
    done
    printf '%04X' "$crc"
done
