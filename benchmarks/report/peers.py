"""The library beside its peers, encoding and decoding: in time and in instructions.

A round times each benchmark once, in random order; ratios are taken within a round. What is counted needs one round.
"""

import json
import pathlib
import re
import statistics
import subprocess
import sys

ROUNDS = 11
PAIR_ROUNDS = 41  # of the library and one peer alone, close together
SECONDS = 0.01    # of each benchmark in a round
OURS = "libGorvanet"

Costs = dict[tuple[str, str], dict[str, float]]  # of "encode" and "decode" by workload and peer


def run_round(build: pathlib.Path, names: str) -> Costs:
    out = build / "times.json"
    command = [str(build / "benchmarks/gorvanet_times"), f"--benchmark_min_time={SECONDS}",
               "--benchmark_enable_random_interleaving=true", f"--benchmark_filter={names}", f"--benchmark_out={out}"]
    ran = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    if ran.returncode:
        sys.exit(ran.stderr)
    return sorted_in({entry["name"]: entry["cpu_time"] for entry in json.loads(out.read_text())["benchmarks"]})


def sorted_in(costs: dict[str, float]) -> Costs:
    """Of costs by name, as in "W1/libGorvanet/encode"."""
    found: Costs = {}
    for name, cost in costs.items():
        workload, peer, direction = name.split("/")
        found.setdefault((workload, peer), {})[direction] = cost
    return found


def count(build: pathlib.Path) -> Costs:
    """Instructions, allocator included."""
    profile = build / "peers.callgrind"
    command = ["valgrind", "--quiet", "--tool=callgrind", "--combine-dumps=yes", f"--callgrind-out-file={profile}",
               str(build / "benchmarks/gorvanet_times"), "--count"]
    print("counting the peers' instructions", file=sys.stderr)
    subprocess.run(command, check=True)
    part = re.compile(r"^desc: Trigger: Client Request: (.*)\n(?:.*\n)*?summary: (\d+)$", re.MULTILINE)
    found = part.findall(profile.read_text())
    counts = {name: float(cost) for name, cost in found}
    of_counting = counts.pop("nothing")
    return sorted_in({name: cost - of_counting for name, cost in counts.items()})


def run_rounds(build: pathlib.Path, rounds: int, names: str) -> list[Costs]:
    found = []
    for number in range(rounds):
        print(f"\rtimes: round {number + 1} of {rounds}", end="", file=sys.stderr, flush=True)
        found.append(run_round(build, names))
    print(file=sys.stderr)
    return found


def run(build: pathlib.Path) -> list[Costs]:
    return run_rounds(build, ROUNDS, ".")


def run_pair(build: pathlib.Path, peer: str) -> list[Costs]:
    return run_rounds(build, PAIR_ROUNDS, f"/({OURS}|{peer})/")


def both(costs: dict[str, float]) -> float:
    return costs["encode"] + costs["decode"]


def median(rounds: list[Costs], workload: str, peer: str) -> float:
    """Of encoding and decoding."""
    return statistics.median(both(costs[workload, peer]) for costs in rounds)


def median_ratio(rounds: list[Costs], workload: str, peer: str) -> float:
    """Of what the library takes to what the peer takes."""
    return statistics.median(both(costs[workload, OURS]) / both(costs[workload, peer]) for costs in rounds)
