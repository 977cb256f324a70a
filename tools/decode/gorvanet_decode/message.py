"""A message, wherever it comes from, and its JSON document.

A document has `body` (METHOD.DIRECTION) or `record`, and `fields`; a message from a capture has `packet` too. What is
damaged, or not as the encoder writes it, has its `bytes`, which count more than the fields on the way back.
"""

from __future__ import annotations

import re
import struct
from dataclasses import dataclass
from typing import Any

from . import capture, wire
from .capture import DIRECTIONS, SIDES, Packet
from .description import Body, Field, Interface
from .wire import CannotEncode, Decoded, Values

_HEXADECIMAL = ("magic", "pointer")


@dataclass(frozen=True)
class Message:
    """Bytes and what they say. `what` is the name of a body or of a record; empty where it is not known."""

    what: str
    data: bytes
    decoded: Decoded
    is_record: bool = False
    packet: Packet | None = None

    @property
    def sound(self) -> bool:
        return not self.decoded.problem and bool(self.what) and not (self.packet and self.packet.problem)


# ---- From bytes ------------------------------------------------------------------------------------------------------


class Ambiguous(Exception):
    """Names the bodies that the bytes may be."""


class Unknown(Exception):
    """No body begins like the bytes."""


def of_record(interface: Interface, name: str, data: bytes) -> Message:
    return Message(name, data, wire.decode_record(interface.records[name], data), is_record=True)


def of_body(interface: Interface, body: Body, data: bytes) -> Message:
    return Message(body.name, data, wire.decode_body(body, interface.prologue, data))


def of_packet(interface: Interface, packet: Packet) -> Message:
    direction = DIRECTIONS[packet.direction] if 0 <= packet.direction < len(DIRECTIONS) else ""
    body = interface.body(direction, packet.method)
    decoded = wire.decode_body(body, interface.prologue, packet.body) if body else Decoded()
    if direction == "response" and not packet.body:
        decoded.problem = None  # what a failed delivery leaves
    return Message(body.name if body else "", packet.body, decoded, packet=packet)


def recognise(interface: Interface, candidates: list[Body], data: bytes) -> Message:
    """The candidate that explains most of the bytes."""
    readings = [of_body(interface, body, data) for body in candidates]
    best = max(map(_understood, readings))
    chosen = [reading for reading in readings if _understood(reading) == best]
    if len(chosen) > 1 and best == 0:
        raise Unknown
    if len(chosen) > 1:
        raise Ambiguous(" or ".join(reading.what for reading in chosen))
    return chosen[0]


def _understood(message: Message) -> int:
    problem = message.decoded.problem
    return problem.offset if problem else len(message.data) + 1


# ---- To and from a document ------------------------------------------------------------------------------------------


def to_document(interface: Interface, message: Message) -> dict[str, Any]:
    decoded = message.decoded
    document: dict[str, Any] = {}
    if message.packet:
        document["packet"] = _packet_document(message.packet)
    if message.what:
        document["record" if message.is_record else "body"] = message.what
    values = decoded.values if message.is_record else decoded.values.get("fields", {})
    document["fields"] = _readable(values)
    if decoded.problem:
        document["problem"] = vars(decoded.problem)
    if decoded.notes:
        document["notes"] = decoded.notes
    if decoded.problem or decoded.notes or not message.what or not message.data:
        document["bytes"] = message.data.hex()
    return document


def _readable(value: Any, name: str = "") -> Any:
    if isinstance(value, dict):
        return {key: _readable(each, key) for key, each in value.items()}
    if isinstance(value, list):
        return [_readable(each) for each in value]
    return f"{value:#010x}" if name in _HEXADECIMAL else value


def _packet_document(packet: Packet) -> dict[str, Any]:
    document = {
        "time": format_time(packet.time),
        "direction": _named(packet.direction, DIRECTIONS),
        "side": _named(packet.side, SIDES),
        "method": packet.method,
        "request": packet.request,
        "user": packet.user.decode("utf-8", "surrogateescape"),
        "interface": packet.interface.decode("utf-8", "surrogateescape"),
    }
    return document | ({"problem": packet.problem} if packet.problem else {})


def format_time(nanoseconds: int) -> str:
    """Seconds since 1970, with all nine digits."""
    return "{}.{:09}".format(*divmod(nanoseconds, 1_000_000_000))


def _named(number: int, names: tuple[str, ...]) -> str | int:
    return names[number] if 0 <= number < len(names) else number


def from_document(interface: Interface, document: Any) -> tuple[bytes, Packet | None]:
    """The bytes that a document stands for, and the packet around them if it has one. Raises CannotEncode."""
    if not isinstance(document, dict):
        raise CannotEncode("a message is an object")
    data = _encode(interface, document)
    packet = document.get("packet")
    return data, _packet(packet, data) if packet else None


def _encode(interface: Interface, document: dict[str, Any]) -> bytes:
    if "bytes" in document:
        try:
            return bytes.fromhex(document["bytes"])
        except (TypeError, ValueError) as error:
            raise CannotEncode(f"bytes: {error}") from None
    values: Values = document.get("fields", {})
    if "record" in document:
        return wire.encode_fields(_find(interface.records, document["record"], "record"), values)
    body: Body = _find(interface.bodies, document.get("body"), "body")
    return wire.encode_body(body, interface.prologue, values)


def _find(table: dict[str, Any], name: Any, what: str) -> Any:
    if not isinstance(name, str) or name not in table:
        raise CannotEncode(f"{what}: {name!r} is none of {', '.join(table)}")
    return table[name]


def _packet(document: Any, data: bytes) -> Packet:
    if not isinstance(document, dict):
        raise CannotEncode(f"packet: {document!r} is no object")
    if document.get("problem"):
        raise CannotEncode(f"packet: it was not whole ({document['problem']}), so it cannot be written again")
    try:
        packet = Packet(
            _number(document["direction"], DIRECTIONS),
            _number(document["side"], SIDES),
            document["method"],
            document["request"],
            document["user"].encode("utf-8", "surrogateescape"),
            document["interface"].encode("utf-8", "surrogateescape"),
            data,
            _nanoseconds(document["time"]),
        )
        capture.write([packet])  # its numbers have to fit
        return packet
    except KeyError as error:
        raise CannotEncode(f"packet: {error.args[0]} is missing") from None
    except (AttributeError, TypeError, ValueError, struct.error) as error:
        raise CannotEncode(f"packet: {error}") from None


def _number(name: str | int, names: tuple[str, ...]) -> int:
    return names.index(name) if isinstance(name, str) else name


def _nanoseconds(time: str) -> int:
    if not re.fullmatch("[0-9]+([.][0-9]{1,9})?", time):
        raise ValueError(f"time {time!r} is no number of seconds with up to nine digits behind the point")
    seconds, _, fraction = time.partition(".")
    return int(seconds) * 1_000_000_000 + int(fraction.ljust(9, "0"))
