"""What the tests share: the tree, the description, the golden vectors, values at random."""

from __future__ import annotations

import json
import random
import re
import sys
from collections.abc import Iterator
from dataclasses import replace
from pathlib import Path
from typing import Any

ROOT = Path(__file__).resolve().parent.parent.parent
DESCRIPTION = ROOT / "interface" / "gorvanet.json"
DECODER = ROOT / "tools" / "decode" / "gorvanet-decode"

sys.path[:0] = [str(ROOT / "tools" / "decode"), str(ROOT / "tools" / "generate")]

from gorvanet_decode import description  # noqa: E402
from gorvanet_decode.description import NUMBERS, Body, Field as Field  # noqa: E402
from vectors import Vector, read_all  # noqa: E402

DOCUMENT = json.loads(DESCRIPTION.read_text(encoding="utf-8"))
INTERFACE = description.load(DESCRIPTION)


def vectors() -> dict[str, Vector]:
    """By name of the body."""
    return read_all(ROOT / "interface" / "vectors")


def vector_values(body: Body, vector: Vector) -> dict[str, Any]:
    """The fields behind the prologue as an object. Of a list without elements a vector has the count alone."""
    values: dict[str, Any] = {}
    for line in vector.lines[2:]:
        steps: list[Any] = [int(step) if step.isdigit() else step for step in re.findall(r"\w+", line.path)]
        _place(values, steps, int(line.value, 16) if line.value.startswith("0x") else json.loads(line.value))
    _add_empty_lists(body.fields, values)
    return values


def _add_empty_lists(fields: tuple[Field, ...], values: dict[str, Any]) -> None:
    for field in fields:
        if field.kind == "list":
            for element in values.setdefault(field.name, []):
                _add_empty_lists(field.members, element)
        elif field.kind == "record":
            _add_empty_lists(field.members, values[field.name])


def _place(values: dict[str, Any], steps: list[Any], value: Any) -> None:
    holder: Any = values
    for step, following in zip(steps, steps[1:]):
        inner: Any = [] if isinstance(following, int) else {}
        if isinstance(step, int) and step == len(holder):
            holder.append(inner)
        elif isinstance(step, str):
            holder.setdefault(step, inner)
        holder = holder[step]
    holder[steps[-1]] = value


# ---- Values ----------------------------------------------------------------------------------------------------------


class Values:
    """Chooses values for fields. Those of a text are single-byte characters, so that lengths are plain to see."""

    def __init__(self, seed: int):
        self.random = random.Random(seed)

    def of(self, fields: tuple[Field, ...]) -> dict[str, Any]:
        values: dict[str, Any] = {}
        for field in fields:
            if field.kind == "list":
                values[field.count] = self.count(field)
                present = min(values[field.count], field.capacity)
                values[field.name] = [self.of(field.members) for _ in range(present)]
            elif field.kind == "record":
                values[field.name] = self.of(field.members)
            elif field.kind == "text":
                values[field.name] = self.text(field)
            else:
                values[field.name] = self.number(*NUMBERS["u32" if field.kind == "pointer" else field.kind])
        return values

    def number(self, low: int, high: int) -> int:
        return self.random.choice((low, high, self.random.randint(low, high), self.random.randint(low, high)))

    def count(self, field: Field) -> int:
        return self.random.choice((0, 1, field.capacity, field.capacity + 1, self.random.randint(0, 2**32 - 1)))

    def text(self, field: Field) -> str:
        length = self.random.choice((0, field.capacity - 1, self.random.randrange(field.capacity)))
        return "".join(chr(self.random.randint(1, 0x7F)) for _ in range(length))


class Zeroes(Values):
    """The least that there can be."""

    def __init__(self) -> None:
        super().__init__(0)

    def number(self, low: int, high: int) -> int:
        return 0

    def count(self, field: Field) -> int:
        return 0

    def text(self, field: Field) -> str:
        return ""


class Largest(Values):
    """The most that there is room for."""

    def __init__(self) -> None:
        super().__init__(0)

    def number(self, low: int, high: int) -> int:
        return high

    def count(self, field: Field) -> int:
        return field.capacity

    def text(self, field: Field) -> str:
        return "x" * (field.capacity - 1)


class Only(Zeroes):
    """One element in each list, and one text as long as it can be."""

    def __init__(self, which: Field) -> None:
        super().__init__()
        self.which = which

    def count(self, field: Field) -> int:
        return 1

    def text(self, field: Field) -> str:
        return "x" * (field.capacity - 1) if field == self.which else ""


def widened_texts(fields: tuple[Field, ...]) -> Iterator[tuple[tuple[Field, ...], Field]]:
    """The same fields with one text of more capacity, for each text in turn; and that text."""
    for i, field in enumerate(fields):
        if field.kind == "text":
            longer = replace(field, capacity=field.capacity + 1)
            yield fields[:i] + (longer,) + fields[i + 1 :], longer
        for members, longer in widened_texts(field.members):
            yield fields[:i] + (replace(field, members=members),) + fields[i + 1 :], longer
