"""The capture format of docs/capture.md: packets in a classic pcap file."""

from __future__ import annotations

import struct
from collections.abc import Iterator
from dataclasses import dataclass

LINK_TYPE = 147
MARK = b"GVN1"
DIRECTIONS = ("request", "response", "notification")
SIDES = ("sent", "received")
LONGEST_PACKET = 262144

_MAGICS = {b"\xa1\xb2\xc3\xd4": (">", 1000), b"\xd4\xc3\xb2\xa1": ("<", 1000)}
_MAGICS |= {b"\xa1\xb2\x3c\x4d": (">", 1), b"\x4d\x3c\xb2\xa1": ("<", 1)}
_FILE_HEADER = "IHHiIII"
_PACKET_HEADER = "IIII"


class BadCapture(Exception):
    """Says where, and why."""


@dataclass(frozen=True)
class Packet:
    """One recorded message."""

    direction: int
    side: int
    method: int
    request: int  # its number; 0 unknown
    user: bytes
    interface: bytes
    body: bytes
    time: int = 0  # nanoseconds since 1970
    problem: str = ""  # what is wrong with the packet; its other members hold what was read before


def is_capture(data: bytes) -> bool:
    return data[:4] in _MAGICS


def is_pcapng(data: bytes) -> bool:
    """The newer format of captures, which is not read here."""
    return data[:4] == b"\n\r\r\n" and data[8:12] in (b"\x1a\x2b\x3c\x4d", b"\x4d\x3c\x2b\x1a")


def read(data: bytes) -> Iterator[Packet]:
    """The packets of a file. A broken file raises BadCapture behind its last whole packet."""
    order, unit = _MAGICS[data[:4]]
    header = struct.Struct(order + _FILE_HEADER)
    if len(data) < header.size:
        raise BadCapture(f"the file header has {header.size} bytes, {len(data)} are there")
    link_type = header.unpack_from(data)[-1] & 0xFFFF
    if link_type != LINK_TYPE:
        raise BadCapture(f"link type {link_type}, expected {LINK_TYPE}")
    at = header.size
    packet_header = struct.Struct(order + _PACKET_HEADER)
    while at < len(data):
        if len(data) - at < packet_header.size:
            raise BadCapture(f"at {at:#x}: a packet begins with {packet_header.size} bytes, {len(data) - at} are left")
        seconds, fraction, size, whole_size = packet_header.unpack_from(data, at)
        at += packet_header.size
        if size > len(data) - at:
            raise BadCapture(f"at {at:#x}: {size} bytes announced, {len(data) - at} are left")
        yield _read_packet(data[at : at + size], whole_size, seconds * 1_000_000_000 + fraction * unit)
        at += size


def _read_packet(data: bytes, whole_size: int, time: int) -> Packet:
    if data[:4] != MARK:
        return Packet(-1, -1, -1, 0, b"", b"", data, time, f"mark {data[:4].hex(' ')}, expected {MARK.hex(' ')}")
    if len(data) < 14:
        return Packet(-1, -1, -1, 0, b"", b"", data, time, f"cut off after {len(data)} bytes")
    direction, side, method, request = struct.unpack_from(">BBHI", data, 4)
    user, at = _counted(data, 12, 2)
    interface, at = _counted(data, at, 2)
    body, end = _counted(data, at, 4)
    problem = ""
    if end > len(data):
        problem = f"cut off after {len(data)} bytes" + (f" of {whole_size}" if len(data) < whole_size else "")
    elif end < len(data):
        problem = f"{len(data) - end} bytes left over behind the body"
    return Packet(direction, side, method, request, user, interface, body, time, problem)


def _counted(data: bytes, at: int, width: int) -> tuple[bytes, int]:
    """A field behind its length, and where it ends; that may be behind the data."""
    end = at + width
    if end <= len(data):
        end += int.from_bytes(data[at:end], "big")
    return data[at + width : end], end


def write(packets: list[Packet]) -> bytes:
    """A file of big-endian byte order, with time stamps in nanoseconds."""
    parts = [struct.pack(">" + _FILE_HEADER, 0xA1B23C4D, 2, 4, 0, 0, LONGEST_PACKET, LINK_TYPE)]
    for packet in packets:
        data = write_packet(packet)
        parts.append(struct.pack(">" + _PACKET_HEADER, *divmod(packet.time, 1_000_000_000), len(data), len(data)))
        parts.append(data)
    return b"".join(parts)


def write_packet(packet: Packet) -> bytes:
    head = MARK + struct.pack(">BBHI", packet.direction, packet.side, packet.method, packet.request)
    names = b"".join(struct.pack(">H", len(name)) + name for name in (packet.user, packet.interface))
    return head + names + struct.pack(">I", len(packet.body)) + packet.body
