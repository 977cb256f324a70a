"""The golden vectors of interface/vectors: one item after the other, each with its name, its value and its bytes."""

from __future__ import annotations

from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Line:
    """One item: what it is called, its value as it is written there, and its bytes."""

    path: str
    value: str
    data: bytes


@dataclass(frozen=True)
class Vector:
    comment: str
    lines: list[Line]

    @property
    def data(self) -> bytes:
        return b"".join(line.data for line in self.lines)


def read_vector(path: Path) -> Vector:
    comments: list[str] = []
    lines: list[Line] = []
    for text in path.read_text(encoding="ascii").splitlines():
        if text.startswith("#"):
            comments.append(text.removeprefix("# "))
        elif text.startswith(" "):
            last = lines.pop()
            lines.append(Line(last.path, last.value, last.data + bytes.fromhex(text)))
        else:
            name, value = text.split(" = ", 1)
            lines.append(Line(name, value, b""))
    return Vector(" ".join(comments), lines)


def read_all(folder: Path) -> dict[str, Vector]:
    """By name of the body."""
    return {path.stem: read_vector(path) for path in sorted(folder.glob("*.txt"))}
