"""Instruction counts from callgrind."""

import pathlib
import re
import subprocess

Counts = dict[str, int]


def run(program: pathlib.Path, toggle: str) -> list[str]:
    """What callgrind says of the program while it is inside the function `toggle`, a line each."""
    profile = program.with_suffix(".callgrind")
    command = [
        "valgrind", "--quiet", "--tool=callgrind", "--skip-plt=no", "--compress-strings=no", "--compress-pos=no",
        f"--toggle-collect=*{toggle}*", f"--callgrind-out-file={profile}", str(program),
    ]
    subprocess.run(command, check=True)
    return profile.read_text().splitlines()


def called_from(profile: list[str]) -> dict[tuple[str, str], int]:
    """Instructions of the calls of each (caller, callee), all that the callee calls included."""
    counts: dict[tuple[str, str], int] = {}
    caller = callee = ""
    lines = iter(profile)
    for line in lines:
        if line.startswith("fn="):
            caller = line[3:]
        elif line.startswith("cfn="):
            callee = line[4:]
        elif line.startswith("calls="):
            cost = int(next(lines).split()[1])
            counts[caller, callee] = counts.get((caller, callee), 0) + cost
    return counts


def counts(program: pathlib.Path) -> Counts:
    """Of each operation on each workload, as in "W1 serialize", and of the trip, "W7"."""
    found: Counts = {}
    for (caller, callee), cost in called_from(run(program, "collected")).items():
        codec = re.search(r"measured_(\w+)<(W\d)>", caller)
        if codec and callee.endswith("[PLT]"):
            found[f"{codec[2]} {codec[1]}"] = cost
        elif "measured_trip" in caller and "run_trip" in callee:
            found["W7"] = cost
    return dict(sorted(found.items()))
