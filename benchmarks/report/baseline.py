"""The instruction counts that are stored in the tree, and how the counts of today compare with them."""

import json
import pathlib
import re
import subprocess

import limits
from callgrind import Counts

FILE = pathlib.Path(__file__).resolve().parent.parent / "baseline.json"


def output(*command: str) -> str:
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def first(pattern: str, text: str) -> str:
    found = re.search(pattern, text, re.MULTILINE)
    return found[1] if found else "unknown"


def surroundings(build: pathlib.Path) -> dict[str, str]:
    """What the counts depend on besides the library's source."""
    library = str(build / "libGorvanet.so.1")
    libc = first(r"libc\.so\.6 => (\S+)", output("ldd", str(build / "benchmarks/gorvanet_instructions")))
    return {
        "processor": first(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text()),
        "libc": output(libc).splitlines()[0],
        "valgrind": output("valgrind", "--version").strip(),
        "compiler": first(r"(GCC: .*|.*clang.*)$", output("readelf", "--string-dump=.comment", library)),
    }


def store(build: pathlib.Path, counts: Counts) -> None:
    stored = {"taken with": surroundings(build), "instructions": counts}
    FILE.write_text(json.dumps(stored, indent=4) + "\n")


def differing(stored: dict[str, str], found: dict[str, str]) -> list[str]:
    return [f"{what} {stored.get(what)}, here {value}" for what, value in found.items() if stored.get(what) != value]


def complaint(name: str, before: int | None, now: int | None) -> str | None:
    """What is wrong with this count, if anything."""
    if before is None or now is None:
        return f"{name}: stored {before}, counted {now}; scripts/bench --update takes what is counted over"
    if now > before * limits.GATE:
        return f"{name}: {now} instructions, {100 * (now / before - 1):.1f} % more than the {before} stored"
    return None


def compare(build: pathlib.Path, counts: Counts) -> bool:
    """Says what has become worse; false if anything has."""
    stored = json.loads(FILE.read_text())
    reasons = differing(stored["taken with"], surroundings(build))
    if reasons:
        print("not compared: the stored counts were taken with " + "; ".join(reasons))
        return True
    before = stored["instructions"]
    complaints = [complaint(name, before.get(name), counts.get(name)) for name in {**before, **counts}]
    for text in filter(None, complaints):
        print(text)
    if any(complaints):
        return False
    print(f"{len(counts)} instruction counts, none more than 3 % worse than stored; in all {change(before, counts)}")
    return True


def change(before: Counts, now: Counts) -> str:
    ratio = sum(now.values()) / sum(before.values())
    return f"{100 * (ratio - 1):+.1f} %"
