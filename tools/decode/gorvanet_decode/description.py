"""The description of the interface, interface/gorvanet.json, as Python sees it."""

from __future__ import annotations

import json
from dataclasses import dataclass
from pathlib import Path
from typing import Any

NUMBERS = {"u8": (0, 0xFF), "s8": (-0x80, 0x7F), "u16": (0, 0xFFFF), "u32": (0, 0xFFFFFFFF)}


@dataclass(frozen=True)
class Field:
    """One field. A record has no tag of its own; a list has the tag and the name of its count."""

    name: str
    kind: str  # one of NUMBERS, text, pointer, record, list
    tag: int = -1
    capacity: int = 0  # of a text with its NUL, or of a list in elements
    count: str = ""
    record: str = ""
    members: tuple[Field, ...] = ()


@dataclass(frozen=True)
class Body:
    """What travels in one direction of a method."""

    method: str
    direction: str  # request, response or notification
    index: int  # of the method within its interface
    magic: int
    version: int
    fields: tuple[Field, ...]  # behind the prologue

    @property
    def name(self) -> str:
        return f"{self.method}.{self.direction}"


@dataclass(frozen=True)
class Interface:
    name: str
    prologue: tuple[Field, ...]
    records: dict[str, tuple[Field, ...]]
    bodies: dict[str, Body]  # by name

    def body(self, direction: str, index: int) -> Body | None:
        return next((b for b in self.bodies.values() if (b.direction, b.index) == (direction, index)), None)


def load(path: Path) -> Interface:
    """Raises OSError, ValueError, KeyError or TypeError for a file that is no description."""
    return from_document(json.loads(path.read_text(encoding="utf-8")))


def from_document(document: dict[str, Any]) -> Interface:
    records: dict[str, tuple[Field, ...]] = {}
    for record in document["records"]:
        records[record["name"]] = _fields(record["fields"], records)
    bodies = [body for method in document["methods"] for body in _bodies(method, records)]
    return Interface(
        document["interface"], _fields(document["prologue"], records), records, {body.name: body for body in bodies}
    )


def _fields(fields: list[dict[str, Any]], records: dict[str, tuple[Field, ...]]) -> tuple[Field, ...]:
    """A record is described before those that hold it."""
    return tuple(Field(**field, members=records[field["record"]] if "record" in field else ()) for field in fields)


def _bodies(method: dict[str, Any], records: dict[str, tuple[Field, ...]]) -> list[Body]:
    request = "notification" if method["interface"] == "notification" else "request"
    return [
        Body(
            method["name"],
            request if part == "request" else part,
            method["index"],
            int(method["magic"], 16),
            method["version"],
            _fields(method[part], records),
        )
        for part in ("request", "response")
        if method[part] is not None
    ]
