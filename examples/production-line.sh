#!/usr/bin/env bash
# One hand on a production line: find it, update its firmware, restore the golden parameters, check
# them, and write a report. Standard output is one JSON object for each step.
# usage: production-line.sh UPDATE_FILE GOLDEN_FILE REPORT_FILE
# VANTO_PORT names the port; the fixture switches the power of the hand.
set -euo pipefail

update=$1 golden=$2 report=$3
# What all hands have in common.
only=P,I,D,G,currentLimit,forceLimit,selfTestLevel,beepSwitch

fail() {
    echo "$2" >&2
    exit "$1"
}

hands=$(vantoctl --json scan --nodes "${NODES:-1-16}") || fail $? "No hand was found."
echo "$hands"
[[ $(grep -o '"node":' <<<"$hands" | wc -l) -eq 1 ]] || fail 2 "There is more than one hand."
VANTO_NODE=$(sed 's/.*"node":\([0-9]*\).*/\1/' <<<"$hands")
export VANTO_NODE

vantoctl --json --quiet update "$update" --yes ||
    fail $? "The update has failed."
# The boot loader waits a moment before it starts the new firmware.
for attempt in 1 2 3 4 5 6 7 8 9 10; do
    ! vantoctl --quiet get firmware >/dev/null 2>&1 || break
    [[ $attempt -lt 10 ]] || fail 3 "The hand does not answer after the update."
    sleep 1
done

vantoctl --json --quiet restore "$golden" --only "$only" || fail $? "The parameters have not been restored."
status=0
vantoctl --json --quiet diff "$golden" --only "$only" || status=$?
vantoctl --json --quiet report "$report" || fail $? "The report has not been written."
exit "$status"
