"""Times beside the peers: each round runs every benchmark once, in random order, and ratios are taken within a round."""

import json
import pathlib
import statistics
import subprocess
import sys

ROUNDS = 21
SECONDS = 0.01  # of each benchmark in a round
OURS = "libGorvanet"

Round = dict[tuple[str, str], dict[str, float]]  # nanoseconds of "encode" and "decode" by workload and peer


def run_round(build: pathlib.Path, number: int) -> Round:
    print(f"\rtimes: round {number + 1} of {ROUNDS}", end="", file=sys.stderr, flush=True)
    out = build / "times.json"
    command = [build / "benchmarks/gorvanet_times", f"--benchmark_min_time={SECONDS}",
               "--benchmark_enable_random_interleaving=true", f"--benchmark_out={out}"]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    times: Round = {}
    for entry in json.loads(out.read_text())["benchmarks"]:
        workload, peer, direction = entry["name"].split("/")
        times.setdefault((workload, peer), {})[direction] = entry["cpu_time"]
    return times


def run(build: pathlib.Path) -> list[Round]:
    rounds = [run_round(build, number) for number in range(ROUNDS)]
    print(file=sys.stderr)
    return rounds


def both(times: dict[str, float]) -> float:
    return times["encode"] + times["decode"]


def median(rounds: list[Round], workload: str, peer: str) -> float:
    """Of encoding and decoding, in nanoseconds."""
    return statistics.median(both(times[workload, peer]) for times in rounds)


def median_ratio(rounds: list[Round], workload: str, peer: str) -> float:
    """Of what the library takes to what the peer takes."""
    return statistics.median(both(times[workload, OURS]) / both(times[workload, peer]) for times in rounds)
