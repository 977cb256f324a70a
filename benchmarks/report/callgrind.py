"""Instruction counts from callgrind."""

import pathlib
import re
import subprocess

Counts = dict[str, int]
Calls = dict[tuple[str, str], int]


def run(program: pathlib.Path, collected: str, *arguments: str) -> list[str]:
    """What callgrind says of the program while it is inside the function `collected`, a line each."""
    profile = program.with_suffix(".callgrind")
    command = [
        "valgrind", "--quiet", "--tool=callgrind", "--skip-plt=no", "--compress-strings=no", "--compress-pos=no",
        f"--toggle-collect=*{collected}*", f"--callgrind-out-file={profile}", str(program), *arguments,
    ]
    subprocess.run(command, check=True)
    return profile.read_text().splitlines()


def calls(profile: list[str]) -> Calls:
    """Instructions of the calls of each (caller, callee), all that the callee calls included."""
    found: Calls = {}
    caller = callee = ""
    lines = iter(profile)
    for line in lines:
        if line.startswith("fn="):
            caller = line[3:]
        elif line.startswith("cfn="):
            callee = line[4:]
        elif line.startswith("calls="):
            cost = int(next(lines).split()[1])
            found[caller, callee] = found.get((caller, callee), 0) + cost
    return found


def count_calls(program: pathlib.Path) -> Counts:
    """Of each operation on each workload, as in "W1 serialize", and of the trip, "W7"."""
    counts: Counts = {}
    for (caller, callee), cost in calls(run(program, "collected")).items():
        codec = re.search(r"measured_(\w+)<(W\d)>", caller)
        if codec and callee.endswith("[PLT]"):
            counts[f"{codec[2]} {codec[1]}"] = cost
        elif "measured_trip" in caller and "run_trip" in callee:
            counts["W7"] = cost
    return counts


def count_open(program: pathlib.Path, library: pathlib.Path) -> int:
    """Of opening the library."""
    costs = calls(run(program, "measured_open", str(library)))
    return sum(cost for (caller, callee), cost in costs.items() if caller == "measured_open" and callee.endswith("[PLT]"))


def count_all(build: pathlib.Path) -> Counts:
    programs = build / "benchmarks"
    library = build / "libGorvanet.so.1"
    counts = dict(sorted(count_calls(programs / "gorvanet_instructions").items()))
    counts["dlopen beside libgcc_s"] = count_open(programs / "gorvanet_opening_beside_libgcc", library)
    counts["dlopen with libgcc_s"] = count_open(programs / "gorvanet_opening", library)
    return counts
