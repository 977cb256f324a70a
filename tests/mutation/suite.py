"""Runs the tests against a library until one fails, the likely ones first."""

import collections
import os
import pathlib
import re
import resource
import signal
import subprocess
import sys

from library import BUILD

SUITES = {
    "records": "records/records_test",
    "commands": "commands/commands_test",
    "notifications": "notifications/notifications_test",
    "frame": "frame/frame_test",
    "random": "records/records_random_test",
    "guard": "guard/guard_test",
}
WALL_SECONDS = 1200
REMEMBERED = 6

# Processor seconds that a suite may take: longer is a time-out. So many times what it takes with the library as it is.
PATIENCE = 4
LONGEST = 300


class Suite:
    def __init__(self) -> None:
        # The tests that caught earlier mutants of a file, the last one first: they catch most of the others too.
        self.catchers: dict[pathlib.Path, dict[str, list[str]]] = collections.defaultdict(
            lambda: collections.defaultdict(list))
        self.limits = dict.fromkeys(SUITES, LONGEST)

    def learn_limits(self, directory: pathlib.Path) -> None:
        """From the library of this directory, which is as it should be. For one thread at a time."""
        for name in SUITES:
            before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
            if run(name, directory, LONGEST):
                sys.exit(f"{name}: a test fails without any mutant")
            self.limits[name] = 2 + int(PATIENCE * (resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before))

    def fails_again(self, path: pathlib.Path, directory: pathlib.Path) -> bool:
        """Does a test fail that failed with an earlier mutant of the file at `path`?"""
        return any(run(name, directory, self.limits[name], ":".join(tests))
                   for name, tests in list(self.catchers[path].items()))

    def fails(self, path: pathlib.Path, directory: pathlib.Path) -> bool:
        """Does a test fail with the library of this directory, in which the file at `path` was changed?"""
        first = path.parts[1]
        for name in sorted(SUITES, key=lambda name: name != first):
            failed = run(name, directory, self.limits[name])
            if failed:
                self.remember(path, name, failed)
                return True
        return False

    def remember(self, path: pathlib.Path, name: str, failed: str) -> None:
        tests = self.catchers[path][name]
        if failed != "?" and failed not in tests:
            tests[:] = [failed, *tests][:REMEMBERED]


def run(name: str, directory: pathlib.Path, cpu_seconds: int, tests: str = "*") -> str:
    """The test that failed, '?' for one that cannot be told; nothing if none did."""
    environment = dict(os.environ, LD_LIBRARY_PATH=str(directory), GTEST_FAIL_FAST="1")
    words = ["prlimit", f"--cpu={cpu_seconds}", "--core=0", BUILD / "tests" / SUITES[name], "--gtest_brief=1",
             f"--gtest_filter={tests}"]
    for _ in range(2):  # a time-out must repeat
        try:
            done = subprocess.run(words, env=environment, timeout=WALL_SECONDS, capture_output=True, text=True,
                                  errors="replace")
        except subprocess.TimeoutExpired:
            continue
        if -done.returncode in (signal.SIGXCPU, signal.SIGKILL):
            continue
        found = re.search(r"^\[  FAILED  \] ([^ ,\n]+)", done.stdout, re.MULTILINE)
        return "" if done.returncode == 0 else found.group(1) if found else "?"
    return "?"
