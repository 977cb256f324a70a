"""Bytes to values and back.

What the library's decoder accepts is accepted here, and what its encoder would have written otherwise is noted. What it
refuses, or could not read without leaving the bytes, is a problem; what stands before it is decoded all the same.
"""

from __future__ import annotations

import re
from dataclasses import dataclass, field
from typing import Any

from .description import NUMBERS, Body, Field

Values = dict[str, Any]

HEADER = 8  # tag and length of 32 bits each
WIDE_HEADER = 16  # and of 64 bits each, for a pointer


def text_length(size: int) -> int:
    """Length of a text's value: its bytes and the NUL, rounded down to a multiple of 4, plus 4."""
    return ((size + 1) & ~3) + 4


class CannotEncode(Exception):
    """Says which field, and why."""


@dataclass(frozen=True)
class Problem:
    offset: int  # of the item
    field: str  # its path
    text: str

    def __str__(self) -> str:
        return f"at {self.offset:#x}, {self.field or 'the end'}: {self.text}"


@dataclass(frozen=True)
class Item:
    """A line of the tree: an item of the wire, or the beginning of a record, which has no item."""

    offset: int
    depth: int
    name: str
    kind: str
    value: Any  # of a record its name
    size: int = 0
    notes: tuple[str, ...] = ()


@dataclass
class Decoded:
    values: Values = field(default_factory=dict)
    items: list[Item] = field(default_factory=list)
    problem: Problem | None = None

    @property
    def notes(self) -> list[str]:
        return [f"at {item.offset:#x}, {item.name}: {note}" for item in self.items for note in item.notes]


# ---- Decoding --------------------------------------------------------------------------------------------------------


def decode_body(body: Body, prologue: tuple[Field, ...], data: bytes) -> Decoded:
    reader = _Reader(data)
    reader.run(lambda: _read_body(reader, body, prologue))
    return reader.decoded


def decode_record(fields: tuple[Field, ...], data: bytes) -> Decoded:
    reader = _Reader(data)
    reader.run(lambda: reader.fields(fields, reader.decoded.values))
    return reader.decoded


def _read_body(reader: _Reader, body: Body, prologue: tuple[Field, ...]) -> None:
    values = reader.decoded.values
    for each, expected in zip(prologue, (body.magic, body.version)):
        offset = reader.at
        reader.number(each, values)
        if values[each.name] != expected:
            reader.path.append(each.name)
            raise _Refused(offset, f"{_shown(values[each.name])}, expected {_shown(expected)}")
    values["fields"] = {}
    reader.fields(body.fields, values["fields"])


def _shown(number: int) -> str:
    return f"{number:#010x}" if number > 0xFFFF else str(number)


class _Refused(Exception):
    def __init__(self, offset: int, text: str):
        super().__init__(text)
        self.offset = offset
        self.text = text


class _Reader:
    def __init__(self, data: bytes):
        self.data = data
        self.at = 0
        self.path: list[str] = []
        self.decoded = Decoded()

    def run(self, read: Any) -> None:
        """Reads, and finds what is left over. The path stays at the field that was refused."""
        try:
            read()
            if self.at < len(self.data):
                raise _Refused(self.at, f"{len(self.data) - self.at} bytes left over behind the last item")
        except _Refused as refused:
            self.decoded.problem = Problem(refused.offset, ".".join(self.path), refused.text)

    def fields(self, fields: tuple[Field, ...], values: Values) -> None:
        for each in fields:
            self.field(each, values)

    def field(self, each: Field, values: Values) -> None:
        if each.kind == "record":
            self.record(each, each.name, values.setdefault(each.name, {}))
        elif each.kind == "list":
            self.list(each, values)
        elif each.kind == "text":
            self.text(each, values)
        elif each.kind == "pointer":
            self.pointer(each, values)
        else:
            self.number(each, values)

    def record(self, each: Field, name: str, values: Values) -> None:
        self.note_item(self.at, name, "record", each.record)
        self.path.append(name)
        self.fields(each.members, values)
        self.path.pop()

    def list(self, each: Field, values: Values) -> None:
        self.number(Field(each.count, "u32", each.tag, each.capacity), values)
        elements: list[Values] = values.setdefault(each.name, [])
        for i in range(min(values[each.count], each.capacity)):
            elements.append({})
            self.record(each, f"{each.name}[{i}]", elements[i])

    def number(self, each: Field, values: Values) -> None:
        offset, value = self.item(each, HEADER, 4)
        found = int.from_bytes(value[:4], "big")
        number = _narrow(found, each.kind)
        values[each.name] = number
        notes = _length_notes(len(value), 4)
        if found != number & 0xFFFFFFFF:
            notes += (f"{found:#010x} on the wire, of which the low bits count",)
        if each.capacity and number > each.capacity:
            notes += (f"more than the {each.capacity} that there is room for, and that follow",)
        self.leave(each, offset, number, notes)

    def text(self, each: Field, values: Values) -> None:
        offset, value = self.item(each, HEADER, 1)
        size = value.find(0)
        if size < 0:
            raise _Refused(offset, f"no NUL in {len(value)} bytes")
        if size >= each.capacity:
            raise _Refused(offset, f"{size + 1} bytes with the NUL, {each.capacity} fit")
        text = value[:size].decode("utf-8", "surrogateescape")
        values[each.name] = text
        notes = _length_notes(len(value), text_length(size))
        if any(value[size:]):
            notes += ("bytes other than 0 behind the NUL",)
        self.leave(each, offset, text, notes)

    def pointer(self, each: Field, values: Values) -> None:
        offset, value = self.item(each, WIDE_HEADER, 8)
        number = int.from_bytes(value[:8], "big")
        if number > 0xFFFFFFFF:
            raise _Refused(offset, f"{number:#x} does not fit 32 bits")
        values[each.name] = number
        length = int.from_bytes(self.data[offset + 8 : offset + WIDE_HEADER], "big")
        self.leave(each, offset, number, _length_notes(length, 8))

    def item(self, each: Field, header: int, needed: int) -> tuple[int, bytes]:
        """The next item, which shall have the field's tag and hold what its kind needs: its offset and its value."""
        offset = self.at
        self.path.append(each.count or each.name)
        rest = self.data[offset:]
        if len(rest) < header:
            raise _Refused(offset, f"an item begins with {header} bytes, {len(rest)} are left")
        tag = int.from_bytes(rest[: header // 2], "big")
        # Of the length of a wide item the low half counts.
        length = int.from_bytes(rest[header - 4 : header], "big")
        if tag != each.tag:
            raise _Refused(offset, f"tag {tag} (length {length}), expected {each.tag}")
        if length > len(rest) - header:
            raise _Refused(offset, f"{length} bytes announced, {len(rest) - header} are left")
        if length < needed:
            raise _Refused(offset, f"{length} bytes, at least {needed} needed")
        self.at = offset + header + length
        return offset, rest[header : header + length]

    def leave(self, each: Field, offset: int, value: Any, notes: tuple[str, ...]) -> None:
        self.note_item(offset, each.name, each.kind, value, notes)
        self.path.pop()

    def note_item(self, offset: int, name: str, kind: str, value: Any, notes: tuple[str, ...] = ()) -> None:
        depth = len(self.path) - (kind != "record")
        self.decoded.items.append(Item(offset, depth, name, kind, value, self.at - offset, notes))


def _narrow(number: int, kind: str) -> int:
    """What the library keeps of a number: the low bits."""
    low, high = NUMBERS[kind]
    number &= high - low
    return number - (high - low + 1) if number > high else number


def _length_notes(found: int, expected: int) -> tuple[str, ...]:
    return () if found == expected else (f"length {found}, where the encoder writes {expected}",)


# ---- Encoding --------------------------------------------------------------------------------------------------------


def encode_body(body: Body, prologue: tuple[Field, ...], values: Values) -> bytes:
    head = dict(zip((each.name for each in prologue), (body.magic, body.version)))
    return encode_fields(prologue, head) + encode_fields(body.fields, values)


def encode_fields(fields: tuple[Field, ...], values: Values, path: str = "") -> bytes:
    if not isinstance(values, dict):
        raise CannotEncode(f"{path.rstrip('.') or 'fields'}: {values!r} is no object")
    known = {each.name for each in fields} | {each.count for each in fields}
    for name in values:
        if name not in known:
            raise CannotEncode(f"{path}{name}: there is no such field")
    return b"".join(_encode_field(each, values, path) for each in fields)


def _encode_field(each: Field, values: Values, path: str) -> bytes:
    if each.name not in values:
        raise CannotEncode(f"{path}{each.name}: missing")
    value = values[each.name]
    if each.kind == "record":
        return encode_fields(each.members, value, f"{path}{each.name}.")
    if each.kind == "list":
        return _encode_list(each, values.get(each.count), value, path)
    if each.kind == "text":
        return _encode_text(each, value, path)
    return _encode_number(each, value, path)


def _encode_list(each: Field, count: Any, elements: Any, path: str) -> bytes:
    if not isinstance(elements, list):
        raise CannotEncode(f"{path}{each.name}: {elements!r} is no list")
    encoded_count = _encode_number(Field(each.count, "u32", each.tag), len(elements) if count is None else count, path)
    present = min(int.from_bytes(encoded_count[HEADER:], "big"), each.capacity)
    if len(elements) != present:
        raise CannotEncode(f"{path}{each.name}: {len(elements)} elements, {present} travel")
    return encoded_count + b"".join(
        encode_fields(each.members, element, f"{path}{each.name}[{i}].") for i, element in enumerate(elements)
    )


def _encode_text(each: Field, text: Any, path: str) -> bytes:
    if not isinstance(text, str):
        raise CannotEncode(f"{path}{each.name}: {text!r} is no text")
    try:
        value = text.encode("utf-8", "surrogateescape")
    except UnicodeEncodeError as error:
        raise CannotEncode(f"{path}{each.name}: {error}") from None
    if 0 in value:
        raise CannotEncode(f"{path}{each.name}: a NUL within the text")
    if len(value) >= each.capacity:
        raise CannotEncode(f"{path}{each.name}: {len(value)} bytes, at most {each.capacity - 1} fit")
    length = text_length(len(value))
    return each.tag.to_bytes(4, "big") + length.to_bytes(4, "big") + value.ljust(length, b"\0")


def _encode_number(each: Field, number: Any, path: str) -> bytes:
    if isinstance(number, str) and re.fullmatch("0x[0-9a-fA-F]+", number):
        number = int(number, 16)
    low, high = NUMBERS["u32" if each.kind == "pointer" else each.kind]
    if not isinstance(number, int) or isinstance(number, bool) or not low <= number <= high:
        raise CannotEncode(f"{path}{each.name}: {number!r} is no number from {low} to {high}")
    width = 8 if each.kind == "pointer" else 4
    numbers = (each.tag, width, number % (1 << 32))
    return b"".join(part.to_bytes(width, "big") for part in numbers)
