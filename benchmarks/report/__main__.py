"""Runs the benchmarks that scripts/bench has built and says how they compare with their limits."""

import argparse
import pathlib
import sys

import callgrind
import limits
from table import Figure, markdown


def instructions(build: pathlib.Path) -> list[Figure]:
    counts = callgrind.counts(build / "benchmarks/gorvanet_instructions")
    return [Figure(name, counts[name], limit) for name, limit in limits.INSTRUCTIONS.items()]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=pathlib.Path)
    options = parser.parse_args()
    figures = instructions(options.build)
    print(markdown("Instructions", figures), end="")
    return 0 if all(figure.passes() for figure in figures) else 1


if __name__ == "__main__":
    sys.exit(main())
