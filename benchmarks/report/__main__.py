"""Runs the benchmarks that scripts/bench has built and says how they compare with their limits."""

import argparse
import json
import pathlib
import subprocess
import sys
from collections.abc import Callable, Sequence

import baseline
import callgrind
import footprint
import limits
import linear
import peers
from table import Figure, Overview, Table

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def instructions(counts: callgrind.Counts) -> Table:
    return Table("Instructions of a call",
                 [Figure(name, count, limits.INSTRUCTIONS.get(name), limits.BEST_INSTRUCTIONS.get(name))
                  for name, count in counts.items()])


def linear_cost(build: pathlib.Path) -> Table:
    found = linear.count(build)
    linear.plot(found, ROOT / "docs/linear-cost.svg")
    return Table("Percent off a linear cost over the number of entries",
                 [Figure(f"{linear.RECORDS[name]} {operation}", linear.deviation(points), limits.LINEAR)
                  for (name, operation), points in found.items()])


def sizes(build: pathlib.Path) -> Table:
    column, section = footprint.sizes(build)
    function, frame = footprint.deepest_frame(build)
    return Table("Bytes", [
        Figure("text column of size, stripped", column, limits.TEXT_COLUMN),
        Figure(".text, stripped", section, limits.TEXT_SECTION),
        Figure(f"largest stack frame ({function})", frame, limits.STACK),
    ])


def allocations(build: pathlib.Path) -> Table:
    return Table("Allocations of one call, the most of any method",
                 [Figure(kind, count, limits.ALLOCATIONS[kind])
                  for kind, count in footprint.allocations(build).items()])


def beside_peers(build: pathlib.Path) -> list[Table | Overview]:
    if not (build / "benchmarks/gorvanet_times").exists():
        return []
    rounds = peers.run(build)
    counted = [peers.count(build)]
    return [
        costs("Nanoseconds of encoding and decoding, median", rounds),
        proportions("libGorvanet's time in proportion, median of the ratios", rounds),
        costs("Instructions of encoding and decoding, allocator included", counted),
        proportions("libGorvanet's instructions in proportion", counted),
        fair_comparison(build),
    ]


def fair_comparison(build: pathlib.Path) -> Table:
    pairs = peers.run_pair(build, limits.RATIO_TO)
    return Table(f"libGorvanet's time in proportion to {limits.RATIO_TO}, median of the ratios",
                 [Figure(workload, peers.median_ratio(pairs, workload, limits.RATIO_TO), limit,
                         limits.BEST_RATIOS.get(workload))
                  for workload, limit in limits.RATIOS.items() if (workload, limits.RATIO_TO) in pairs[0]])


def costs(title: str, rounds: list[peers.Costs]) -> Overview:
    return overview(title, rounds, lambda workload, peer: round(peers.median(rounds, workload, peer)))


def proportions(title: str, rounds: list[peers.Costs]) -> Overview:
    return overview(title, rounds, lambda workload, peer: peers.median_ratio(rounds, workload, peer))


def overview(title: str, rounds: list[peers.Costs], figure: Callable[[str, str], float]) -> Overview:
    """A row for each peer, the cheapest on the largest workload first."""
    workloads = sorted({workload for workload, _ in rounds[0]})
    names = sorted({peer for _, peer in rounds[0]}, key=lambda peer: peers.median(rounds, "W5", peer))
    return Overview(title, workloads, {name: [figure(workload, name) for workload in workloads] for name in names})


def everything(build: pathlib.Path) -> list[Table | Overview]:
    print("counting instructions", file=sys.stderr)
    tables = [instructions(callgrind.count_all(build)), linear_cost(build), allocations(build), sizes(build)]
    return [*tables, *beside_peers(build)]


def report(build: pathlib.Path, tables: Sequence[Table | Overview]) -> bool:
    """Prints the tables and leaves them in the build directory; false if a figure breaks its limit."""
    text = "\n".join(table.text() for table in tables)
    (build / "report.md").write_text(text)
    (build / "report.json").write_text(json.dumps([table.as_json() for table in tables], indent=4) + "\n")
    print(text, end="")
    return all(table.passes() for table in tables)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=pathlib.Path)
    modes = parser.add_mutually_exclusive_group()
    modes.add_argument("--instructions", action="store_true")
    modes.add_argument("--gate", action="store_true")
    modes.add_argument("--update", action="store_true")
    options = parser.parse_args()
    build = options.build
    if options.update:
        baseline.store(build, callgrind.count_all(build))
        return 0
    if options.gate:
        return 0 if baseline.compare(build, callgrind.count_all(build)) else 1
    if options.instructions:
        return 0 if report(build, [instructions(callgrind.count_all(build))]) else 1
    return 0 if report(build, everything(build)) else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except subprocess.CalledProcessError as error:
        sys.exit(str(error))
