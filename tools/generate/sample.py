"""A small capture: every golden vector, as a bus would carry it, and some messages that did not arrive well."""

from __future__ import annotations

from dataclasses import replace

from gorvanet_decode import capture
from gorvanet_decode.capture import DIRECTIONS, Packet
from gorvanet_decode.description import Interface

from vectors import Vector

START = 1_700_000_000_000_000_000
STEP = 1_250_000  # nanoseconds between two packets
SENT, RECEIVED = 0, 1


def sample(interface: Interface, vectors: dict[str, Vector]) -> bytes:
    packets = [
        _packet(interface, name, vectors[name].data, number) for number, name in enumerate(interface.bodies)
    ] + _damaged(interface, vectors)
    return capture.write([replace(packet, time=START + i * STEP) for i, packet in enumerate(packets)])


def _packet(interface: Interface, name: str, data: bytes, number: int) -> Packet:
    """As a client records it. A response directly follows its request, and has its number."""
    body = interface.bodies[name]
    direction = DIRECTIONS.index(body.direction)
    side = SENT if body.direction == "request" else RECEIVED
    request = {"request": number + 1, "response": number, "notification": 0}[body.direction]
    return Packet(direction, side, body.index, request, b"ip-service", b"GorvaNet", data)


def _damaged(interface: Interface, vectors: dict[str, Vector]) -> list[Packet]:
    mtu, name = vectors["SetMtu.request"].data, vectors["SetOsIfc.request"].data
    return [
        _packet(interface, "SetMtu.request", mtu[:-1], 100),
        _packet(interface, "SetMtu.response", b"", 101),
        _packet(interface, "SetMtu.request", mtu[:24] + b"\0\0\0\4" + mtu[28:], 102),
        _packet(interface, "SetOsIfc.request", name[:-4] + b"\0\0\0\1", 103),
        _packet(interface, "SetDhcp.request", vectors["SetMtu.request"].data, 104),
        Packet(3, 2, 99, 0, b"", b"", b"\1\2\3"),
    ]
