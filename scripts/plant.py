#!/usr/bin/env python3
"""Plants the faults of plantedfaults.toml, one at a time, and runs the nearest tests.

Works in a git worktree of its own, build/plant, with the commit that is checked out here. Exit
status 0 if at least 28 faults are found and every replacement still matches its file exactly once.
"""

import argparse
import contextlib
import os
import shlex
import signal
import subprocess
import sys
import tomllib
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TABLE = ROOT / "scripts" / "plantedfaults.toml"
LEAST_FOUND = 28
TEST_LIMIT_S = 600  # a test that does not end has found the fault, too
BUILD = "build/debug"


def run(command, tree, limit=None):
    """Returns the exit status and the output; the status is None after the time limit."""
    environment = os.environ | {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
    # A group of its own, so that the simulated hands of a test that hangs end with it.
    process = subprocess.Popen(command, cwd=tree, env=environment, text=True, errors="replace",
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, start_new_session=True)
    try:
        output, _ = process.communicate(timeout=limit)
        return process.returncode, output
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        output, _ = process.communicate()
        return None, output
    except BaseException:  # Ctrl-C does not reach the group
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGKILL)
        raise


class Plant:
    def __init__(self, options):
        self.options = options
        self.wrap = shlex.split(options.wrap)
        self.wrap_tests = shlex.split(options.wrap_tests)
        self.tree = options.tree or ROOT / "build" / "plant"

    def prepare(self):
        if self.options.tree:
            if self.tree.resolve() == ROOT:
                sys.exit("The faults are not planted in the tree of the user.")
            return
        if not self.tree.exists():
            self.must(["git", "worktree", "add", "--detach", str(self.tree)], ROOT)
        head = subprocess.check_output(["git", "rev-parse", "HEAD"], cwd=ROOT, text=True).strip()
        self.must(["git", "checkout", "--quiet", "--detach", "--force", head], self.tree)
        self.must([*self.wrap, "cmake", "--preset", "debug", "-DCMAKE_UNITY_BUILD=ON"], self.tree)

    @staticmethod
    def must(command, tree):
        status, output = run(command, tree)
        if status != 0:
            sys.exit(f"{shlex.join(command)} failed:\n{output}")

    def build(self, fault):
        targets = {"vanto-hand"} | {test.split()[0] for test in fault["tests"]}
        if any("cli" in test for test in fault["tests"]):
            targets.add("vantoctl")
        jobs = ["-j", str(self.options.jobs)] if self.options.jobs else []
        return run([*self.wrap, "ninja", "-C", BUILD, *jobs, *sorted(targets)], self.tree)

    def failing_test(self, fault):
        for test in fault["tests"]:
            command = test.split()
            command[0] = f"{BUILD}/bin/{command[0]}"
            status, output = run([*self.wrap_tests, *command], self.tree, TEST_LIMIT_S)
            if status != 0:
                lines = [line for line in output.splitlines() if line.startswith("FAIL!")]
                reason = lines[0] if lines else f"status {status}"
                return f"{test}: {reason}"
        return None

    def text_of(self, fault):
        path = self.tree / fault["file"]
        text = path.read_text(encoding="utf-8")
        if text.count(fault["old"]) != 1:
            return path, None
        return path, text

    def plant(self, fault):
        """Returns whether the tests have found the fault, or None if it could not be planted."""
        path, text = self.text_of(fault)
        if text is None:
            print(f"ERROR   {fault['name']}: does not match {fault['file']} exactly once")
            return None
        try:
            path.write_text(text.replace(fault["old"], fault["new"]), encoding="utf-8")
            status, output = self.build(fault)
            if status != 0:
                print(f"ERROR   {fault['name']}: does not compile\n{output[-2000:]}")
                return None
            failure = self.failing_test(fault)
        finally:
            path.write_text(text, encoding="utf-8")
        print(f"found   {fault['name']}: {failure}" if failure else f"MISSED  {fault['name']}",
              flush=True)
        return failure is not None

    def check_tests(self, faults):
        """The tests must pass without a fault, or they would find every one."""
        tests = sorted({test for fault in faults for test in fault["tests"]})
        everything = {"name": "no fault", "tests": tests}
        status, output = self.build(everything)
        if status != 0:
            sys.exit(f"The tests do not compile:\n{output[-2000:]}")
        failure = self.failing_test(everything)
        if failure:
            sys.exit(f"Without a fault: {failure}")
        print(f"ok      {len(tests)} tests pass without a fault", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("names", nargs="*", help="only these faults")
    parser.add_argument("--check", action="store_true", help="only check that the table matches")
    parser.add_argument("--tree", type=Path, help="a copy of the repository with a debug build")
    parser.add_argument("--wrap", default="", help="prefix of the commands that build")
    parser.add_argument("--wrap-tests", default="", help="prefix of the commands that test")
    parser.add_argument("--jobs", type=int, help="jobs of ninja")
    parser.add_argument("--no-baseline", action="store_true",
                        help="do not run the tests without a fault first")
    options = parser.parse_args()

    faults = tomllib.loads(TABLE.read_text(encoding="utf-8"))["fault"]
    if options.names:
        faults = [fault for fault in faults if fault["name"] in options.names]
        if len(faults) != len(options.names):
            sys.exit("There is no fault with one of these names.")
    if options.check:
        stale = [fault["name"] for fault in faults
                 if (ROOT / fault["file"]).read_text(encoding="utf-8").count(fault["old"]) != 1]
        print("\n".join(f"ERROR   {name}: does not match" for name in stale) or
              f"{len(faults)} faults match.")
        return 1 if stale else 0

    plant = Plant(options)
    plant.prepare()
    if not options.no_baseline:
        plant.check_tests(faults)
    results = [plant.plant(fault) for fault in faults]
    found = results.count(True)
    print(f"{found} of {len(faults)} faults found, {results.count(False)} missed, "
          f"{results.count(None)} not planted")
    least = LEAST_FOUND if not options.names else len(faults)
    return 0 if found >= least and None not in results else 1


if __name__ == "__main__":
    sys.exit(main())
