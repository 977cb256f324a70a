"""Messages for people: one line for each item, aligned; coloured where the terminal is asked for it."""

from __future__ import annotations

import json
import time
from typing import Any

from .capture import DIRECTIONS, SIDES, Packet
from .message import Message
from .wire import Item

_COLOURS = {"offset": "2", "name": "36", "record": "1", "note": "33", "problem": "31;1", "title": "1"}
_REMAINS_SHOWN = 64  # bytes behind a problem


class Painter:
    def __init__(self, coloured: bool):
        self.coloured = coloured

    def __call__(self, role: str, text: str) -> str:
        return f"\x1b[{_COLOURS[role]}m{text}\x1b[0m" if self.coloured and text else text


def lines(message: Message, paint: Painter) -> list[str]:
    items = message.decoded.items
    width = max((2 * item.depth + len(item.name) for item in items), default=0)
    shown = [paint("title", _title(message))]
    shown += [_item_line(item, width, paint) for item in items]
    return shown + _problem_lines(message, paint)


def _title(message: Message) -> str:
    size = f"{len(message.data)} bytes"
    if message.packet:
        return f"{_packet_title(message.packet)}, {message.what.partition('.')[0] or 'unknown method'}, {size}"
    return f"{message.what.replace('.', ' ')}, {size}"


def _packet_title(packet: Packet) -> str:
    seconds, nanoseconds = divmod(packet.time, 1_000_000_000)
    parts = [time.strftime("%Y-%m-%d %H:%M:%S", time.gmtime(seconds)) + f".{nanoseconds:09}"]
    parts.append(_named(packet.side, SIDES, "side") + " " + _named(packet.direction, DIRECTIONS, "direction"))
    parts += [f"number {packet.request}"] if packet.request else []
    parts += [f"user {_quoted(packet.user)}"] if packet.user else []
    parts += [f"interface {_quoted(packet.interface)}"] if packet.interface else []
    return ", ".join(parts)


def _named(number: int, names: tuple[str, ...], what: str) -> str:
    return names[number] if 0 <= number < len(names) else f"{what} {number}"


def _quoted(name: bytes) -> str:
    return _text(name.decode("utf-8", "surrogateescape"))


def _text(text: str) -> str:
    """In quotes; what a terminal could take for a command is written as an escape."""
    return json.dumps(text, ensure_ascii=not text.isprintable())


def _item_line(item: Item, width: int, paint: Painter) -> str:
    name = ("  " * item.depth + item.name).ljust(width)
    value = paint("record", item.value) if item.kind == "record" else _value(item)
    notes = paint("note", "".join(f"  ({note})" for note in item.notes))
    return f"  {paint('offset', f'{item.offset:04x}')}  {paint('name', name)}  {value}{notes}"


def _value(item: Item) -> str:
    value: Any = item.value
    if item.kind == "text":
        return _text(value)
    return f"{value:#010x}" if item.kind == "pointer" or item.name == "magic" else str(value)


def _problem_lines(message: Message, paint: Painter) -> list[str]:
    shown = []
    problem = message.decoded.problem
    if problem:
        shown.append(paint("problem", f"  problem {problem}"))
        shown += _dump(message.data, problem.offset)
    elif not message.what:
        shown.append(paint("problem", "  problem: there is no such body"))
        shown += _dump(message.data, 0)
    if message.packet and message.packet.problem:
        shown.append(paint("problem", f"  problem of the packet: {message.packet.problem}"))
    return shown


def _dump(data: bytes, start: int) -> list[str]:
    end = min(len(data), start + _REMAINS_SHOWN)
    shown = [f"  {at:04x}  {data[at : min(at + 16, end)].hex(' ', -4)}" for at in range(start, end, 16)]
    return shown + ([f"  and {len(data) - end} bytes more"] if end < len(data) else [])
