"""Runs the benchmarks that scripts/bench has built and says how they compare with their limits."""

import argparse
import pathlib
import sys

import baseline
import callgrind
import limits
from table import Figure, markdown


def instructions(counts: callgrind.Counts) -> list[Figure]:
    return [Figure(name, count, limits.INSTRUCTIONS.get(name)) for name, count in counts.items()]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=pathlib.Path)
    modes = parser.add_mutually_exclusive_group(required=True)
    modes.add_argument("--instructions", action="store_true")
    modes.add_argument("--gate", action="store_true")
    modes.add_argument("--update", action="store_true")
    options = parser.parse_args()
    counts = callgrind.count_all(options.build)
    if options.update:
        baseline.store(options.build, counts)
        return 0
    if options.gate:
        return 0 if baseline.compare(options.build, counts) else 1
    figures = instructions(counts)
    print(markdown("Instructions", figures), end="")
    return 0 if all(figure.passes() for figure in figures) else 1


if __name__ == "__main__":
    sys.exit(main())
