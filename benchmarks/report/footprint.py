"""What the library takes: bytes in the file, bytes of stack, allocations."""

import pathlib
import subprocess


def output(*command: str | pathlib.Path) -> str:
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def sizes(build: pathlib.Path) -> tuple[int, int]:
    """Of the stripped library: the text column of size(1), and the section .text alone."""
    stripped = build / "benchmarks/libGorvanet.stripped.so"
    subprocess.run(["strip", "-o", stripped, build / "libGorvanet.so.1"], check=True)
    column = int(output("size", stripped).splitlines()[1].split()[0])
    sections = dict(line.split()[:2] for line in output("size", "-A", stripped).splitlines() if line.startswith("."))
    return column, int(sections[".text"])


def deepest_frame(build: pathlib.Path) -> tuple[str, int]:
    """The function of the library with the largest frame, and its bytes."""
    frames: dict[str, int] = {}
    for file in (build / "CMakeFiles/gorvanet.dir/src").rglob("*.su"):
        for line in file.read_text().splitlines():
            place, size, kind = line.split("\t")
            if "dynamic" in kind and "bounded" not in kind:
                raise ValueError(f"no fixed frame: {line}")
            frames[place.split(":", 3)[3]] = int(size)
    name = max(frames, key=frames.__getitem__)
    return name.split("(")[0].split()[-1], frames[name]


def allocations(build: pathlib.Path) -> dict[str, int]:
    """The most that a call of each kind allocates."""
    lines = output(build / "benchmarks/gorvanet_allocations").splitlines()
    return {kind: int(count) for kind, count in map(str.split, lines)}
