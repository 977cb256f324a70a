"""docs/wire.md: the wire format, from the description and the golden vectors."""

from __future__ import annotations

from collections.abc import Sequence

from gorvanet_decode.description import Body, Field, Interface
from gorvanet_decode.wire import HEADER, WIDE_HEADER, text_length

from dissector import filter_name
from vectors import Line, Vector

VALUE_WORDS = 4  # in a row of an example

OPENING = """\
# The wire format

What the bodies of {interface} look like on the bus: the rules, every body with an example, every record.

Made by `scripts/generate` from `interface/gorvanet.json` and `interface/vectors`; tests prove these equal to the
library. To look into bytes of your own, use `tools/decode/gorvanet-decode`; for captures there are `docs/capture.md`
and a Wireshark dissector in `tools/wireshark`.

## The rules

A body is a run of items, one directly behind the other. Nothing tells its length or where it ends. All numbers are
big-endian.

    number   tag (4 bytes)  4 (4 bytes)       value (4 bytes)
    text     tag (4 bytes)  length (4 bytes)  characters, NUL, zero bytes up to the length
    pointer  tag (8 bytes)  8 (8 bytes)       value (8 bytes)

- **Order.** Every body and every record has its items in one order, and all of them. Only the elements of a list depend
  on anything: on the count in front of them.
- **Tags** begin at 3 in every body and in every record, so the same tag occurs again and again. The gaps in some
  records are part of the format: no item has these tags.
- **Numbers** (u8, s8, u16, u32) of fewer bits travel as 32 bits, signed ones with their sign extended. Of what arrives
  the low bits count.
- **Texts** have as their length that of the characters and the NUL, rounded down to a multiple of 4, plus 4. So 1 to 4
  zero bytes follow the NUL, and 4 where none would do.
- **Records** are their items, inline: no tag of their own, no length.
- **Lists** are a count and as many elements as it says, but never more than their capacity, whatever it says.
- **Lengths** are what a reader moves on by. They are not compared with what the kind of the item needs: a longer item
  is skipped whole.

{paddings}

### What a decoder refuses

| Result | When |
|---|---|
| 2 | the first item is not tag 0, the second is not tag 1, or the version (its low 16 bits) is not that of the method |
| 4 | another tag than the expected one; a text with more characters than its capacity less one |
| 12 | a pointer of more than 32 bits |

The magic is not compared by the decoder, but by the function that receives the body, and a wrong one ends the process.
The decoder is given no length: a host checks a body that comes from others before (`hosts/guard`).

### The prologue

Every body begins with these 24 bytes:

{prologue}

## Methods

{methods}

`command` and `notification` are the two interfaces that an index counts in. The accept magic is not on the wire: it is
what a user that accepts the method gives to the bus.

## Bodies

Items behind the prologue. Sizes are those of a whole body. In the examples a row is an item, and further rows of words
belong to the one above.
"""


def reference(interface: Interface, vectors: dict[str, Vector], methods: list[dict[str, object]]) -> str:
    opening = OPENING.format(
        interface=interface.name,
        paddings=_paddings(),
        prologue=_fields_table("", interface.prologue),
        methods=_methods_table(methods),
    )
    bodies = "".join(_body(body, interface, vectors[body.name]) for body in interface.bodies.values())
    records = "".join(_record(*each) for each in interface.records.items())
    return f"{opening}{bodies}\n## Records\n{records}"


def _table(head: tuple[str, ...], rows: Sequence[tuple[str, ...]]) -> str:
    lines = [head, tuple("---" for _ in head), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines).replace(" --- ", "---")


def _paddings() -> str:
    rows = [(str(n), str(text_length(n)), str(text_length(n) - n - 1)) for n in range(9)]
    return _table(("Characters", "Length", "Zero bytes behind the NUL"), rows)


def _methods_table(methods: list[dict[str, object]]) -> str:
    rows = [
        (
            f"{method['interface']} {method['index']}",
            str(method["name"]),
            f"`{method['magic']}`",
            f"`{method['accept_magic']}`",
            str(method["version"]),
            "no" if method["response"] is None else "yes",
        )
        for method in methods
    ]
    return _table(("Index", "Method", "Magic", "Accept magic", "Version", "Response"), rows)


# ---- Bodies and records ----------------------------------------------------------------------------------------------


def _body(body: Body, interface: Interface, vector: Vector) -> str:
    prologue = sum(_least(each) for each in interface.prologue)
    least, most = (prologue + size for size in sizes(body.fields))
    table = "\n\n" + _fields_table(body.method, body.fields) if body.fields else ""
    return f"\n### {body.method} {body.direction}\n\n{_between(least, most)}.{table}\n\nExample. {_example(vector)}"


def _record(name: str, fields: tuple[Field, ...]) -> str:
    return f"\n### {name}\n\n{_between(*sizes(fields))}.\n\n{_fields_table(name, fields)}\n"


def _between(least: int, most: int) -> str:
    return f"{least} bytes" if least == most else f"{least} to {most} bytes"


def _fields_table(owner: str, fields: tuple[Field, ...]) -> str:
    """Filter names are those of the dissector; the prologue has two of its own."""
    return _table(("Tag", "Field", "Kind", "Filter name"), [row for each in fields for row in _rows(owner, each)])


def _rows(owner: str, field: Field) -> list[tuple[str, ...]]:
    if field.kind == "record":
        return [("", f"`{field.name}`", _link(field.record), "")]
    filter_of = f"`{filter_name(owner, field) if owner else f'gorvanet.{field.name}'}`"
    if field.kind == "list":
        elements = f"as many {_link(field.record)} as `{field.count}` says, {field.capacity} at most"
        return [(str(field.tag), f"`{field.count}`", "u32", filter_of), ("", f"`{field.name}`", elements, "")]
    return [(str(field.tag), f"`{field.name}`", _kind(field), filter_of)]


def _kind(field: Field) -> str:
    return f"text, {field.capacity - 1} characters at most" if field.kind == "text" else field.kind


def _link(record: str) -> str:
    return f"[{record}](#{record.lower()})"


# ---- Sizes -----------------------------------------------------------------------------------------------------------


def sizes(fields: tuple[Field, ...]) -> tuple[int, int]:
    """Of the items of these fields: at least and at most."""
    return sum(map(_least, fields)), sum(map(_most, fields))


def _least(field: Field) -> int:
    if field.kind == "record":
        return sizes(field.members)[0]
    return _item_size(field, 0)


def _most(field: Field) -> int:
    if field.kind == "record":
        return sizes(field.members)[1]
    elements = field.capacity * sizes(field.members)[1] if field.kind == "list" else 0
    return _item_size(field, field.capacity - 1) + elements


def _item_size(field: Field, characters: int) -> int:
    if field.kind == "text":
        return HEADER + text_length(characters)
    return WIDE_HEADER + 8 if field.kind == "pointer" else HEADER + 4


# ---- Examples --------------------------------------------------------------------------------------------------------


def _example(vector: Vector) -> str:
    rows = [("", "tag", "length", "value", "")]
    offset = 0
    for line in vector.lines:
        rows += _example_rows(line, offset)
        offset += len(line.data)
    widths = [max(len(row[column]) for row in rows) for column in range(4)]
    shown = ["    " + "  ".join([*(cell.ljust(width) for cell, width in zip(row, widths)), row[4]]) for row in rows]
    return vector.comment + "\n\n" + "\n".join(line.rstrip() for line in shown) + "\n"


def _example_rows(line: Line, offset: int) -> list[tuple[str, str, str, str, str]]:
    half = WIDE_HEADER // 2 if _is_wide(line) else HEADER // 2
    value = line.data[2 * half :]
    size = 4 * VALUE_WORDS
    parts = [value[at : at + size].hex(" ", -4) for at in range(0, len(value), size)]
    tag, length = line.data[:half].hex(), line.data[half : 2 * half].hex()
    first = (f"{offset:04x}", tag, length, parts[0], f"{line.path} {line.value}")
    return [first] + [("", "", "", part, "") for part in parts[1:]]


def _is_wide(line: Line) -> bool:
    return not any(line.data[:4]) and line.path != "magic"
