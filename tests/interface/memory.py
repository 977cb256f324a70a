"""Bodies and records in memory, as C lays them out on i386: every member at a multiple of its alignment.

Worked out from the description alone. The library's structures have to be these, byte by byte.
"""

from __future__ import annotations

from typing import Any

from support import Field

_SIZES = {"u8": 1, "s8": 1, "u16": 2, "u32": 4, "pointer": 4}

# What stands before the fields of a body.
BODY_HEAD = (Field("magic", "u32"), Field("flag", "u16"))


def size_of(fields: tuple[Field, ...]) -> int:
    return len(image(fields, {}))


def image(fields: tuple[Field, ...], values: dict[str, Any]) -> bytes:
    """A structure with these values; what has none is zero."""
    memory = bytearray()
    for field in fields:
        _align(memory, _alignment(field))
        memory += _member(field, values)
    _align(memory, max(map(_alignment, fields), default=1))
    return bytes(memory)


def _member(field: Field, values: dict[str, Any]) -> bytes:
    value = values.get(field.name)
    if field.kind == "text":
        return str(value or "").encode("utf-8", "surrogateescape").ljust(field.capacity, b"\0")
    if field.kind == "record":
        return image(field.members, value or {})
    if field.kind == "list":
        elements = (value or []) + [{}] * (field.capacity - len(value or []))
        count = int(values.get(field.count, 0)).to_bytes(4, "little")
        return count + b"".join(image(field.members, each) for each in elements)
    return int(value or 0).to_bytes(_SIZES[field.kind], "little", signed=field.kind == "s8")


def _alignment(field: Field) -> int:
    if field.kind == "text":
        return 1
    inner = max(map(_alignment, field.members), default=1)
    if field.kind == "record":
        return inner
    return max(4, inner) if field.kind == "list" else _SIZES[field.kind]


def _align(memory: bytearray, alignment: int) -> None:
    memory += bytes(-len(memory) % alignment)
