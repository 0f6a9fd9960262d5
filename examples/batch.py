#!/usr/bin/env python3
"""Opens and closes a hand by `vantoctl batch`, which keeps the port open between the commands.

usage: batch.py NODE [vantoctl options]
"""

import json
import subprocess
import sys
import time


class Hand:
    """Hands on one port. Leaving the `with` block halts every hand that has been moved."""

    def __init__(self, *options):
        self._process = subprocess.Popen(
            ["vantoctl", "batch", "--watchdog", "2000", *options],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        self._process.stdin.close()
        for line in self._process.stdout:  # such as the halt of the watchdog
            print(line, end="", file=sys.stderr)
        if self._process.wait() != 0 and kind is None:
            raise RuntimeError("a hand has not been halted or has not answered")

    def run(self, node, *words):
        """Runs one command and returns its answer; raises RuntimeError if it has failed."""
        print(node, *words, file=self._process.stdin, flush=True)
        answer = self._answer()
        if answer["status"] != 0:
            raise RuntimeError(answer["error"])
        return answer

    def _answer(self):
        for line in self._process.stdout:
            answer = json.loads(line)
            if "event" not in answer:  # the watchdog has halted the hands; no command asked for it
                return answer
        raise RuntimeError("vantoctl has ended")

    def positions(self, node):
        return [self.run(node, "get", "position", finger)["value"] for finger in range(6)]

    def pose(self, node, values, timeout=10.0):
        """Moves all fingers and waits until they have arrived."""
        self.run(node, "pose", *values)
        end = time.monotonic() + timeout
        while any(abs(a - b) > 256 for a, b in zip(self.positions(node), values)):
            if time.monotonic() > end:
                raise RuntimeError("the fingers have not arrived")


def main():
    node = int(sys.argv[1])
    with Hand(*sys.argv[2:]) as hand:
        for values in ([20000] * 6, [0] * 6):
            hand.pose(node, values)
            print(hand.positions(node))


if __name__ == "__main__":
    main()
