"""The dissector in tshark says of a capture what gorvanet-decode says of it, field by field."""

from __future__ import annotations

import os
import random
import subprocess
import tempfile
import unittest
from collections.abc import Iterator
from dataclasses import replace
from pathlib import Path
from typing import Any

from support import INTERFACE, ROOT, Largest, Only, Values, vectors, widened_texts

from dissector import filter_name
from gorvanet_decode import capture, message, wire
from gorvanet_decode.capture import DIRECTIONS, Packet
from gorvanet_decode.description import Body, Field
from gorvanet_decode.message import Message
from sample import sample

SCRIPT = ROOT / "tools" / "wireshark" / "gorvanet.lua"
SAMPLE = ROOT / "tools" / "wireshark" / "sample.pcap"

BETWEEN = "\x1f"  # values of one field; none of them holds it
EXPERT = "_ws.expert.message"
DAMAGED_BODIES = 300

HEAD = ("direction", "side", "method", "number", "user", "interface", "length")


def filters() -> list[str]:
    found = {f"gorvanet.{name}" for name in (*HEAD, "magic", "version")}
    for owner, fields in (*INTERFACE.records.items(), *((b.method, b.fields) for b in INTERFACE.bodies.values())):
        found |= {filter_name(owner, field) for field in fields if field.kind != "record"}
    return sorted(found)


def tshark(file: Path, *arguments: str) -> list[str]:
    command = ["tshark", "-X", f"lua_script:{SCRIPT}", "-r", str(file), *arguments]
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "TZ": "UTC"}
    result = subprocess.run(command, capture_output=True, timeout=120, env=environment)
    if result.returncode or b"Lua" in result.stderr:
        raise AssertionError(result.stderr.decode())
    return result.stdout.decode("utf-8", "replace").removesuffix("\n").split("\n")


def dissect(file: Path, names: list[str], *arguments: str) -> list[dict[str, list[str]]]:
    """Of each packet the values of these fields, in order."""
    options = ["-T", "fields", "-E", "occurrence=a", "-E", f"aggregator={BETWEEN}", "-E", "separator=/t", *arguments]
    options += [option for name in names for option in ("-e", name)]
    rows = [line.split("\t") for line in tshark(file, *options)]
    return [dict(zip(names, (value.split(BETWEEN) if value else [] for value in row))) for row in rows]


def expected(found: Message) -> dict[str, list[str]]:
    """The same by the decoder."""
    assert found.packet
    values: dict[str, list[str]] = {name: [] for name in filters()}
    packet = found.packet
    head = (packet.direction, packet.side, packet.method, packet.request, packet.user, packet.interface)
    for name, value in zip(HEAD, (*head, len(packet.body))):
        text = value.decode() if isinstance(value, bytes) else str(value)
        values[f"gorvanet.{name}"] = [text] if text else []
    body = INTERFACE.bodies.get(found.what)
    for name, value in shown_fields(body, found.decoded.values) if body else ():
        values[name].append(value)
    return values


def shown_fields(body: Body, values: dict[str, Any]) -> Iterator[tuple[str, str]]:
    if "magic" in values:
        yield "gorvanet.magic", f"{values['magic']:#010x}"
    if "version" in values:
        yield "gorvanet.version", str(values["version"])
    yield from shown(body.method, body.fields, values.get("fields", {}))


def shown(owner: str, fields: tuple[Field, ...], values: dict[str, Any]) -> Iterator[tuple[str, str]]:
    for field in fields:
        if field.kind == "record":
            yield from shown(field.record, field.members, values.get(field.name, {}))
        elif field.kind == "list" and field.count in values:
            yield filter_name(owner, field), str(values[field.count])
            for element in values.get(field.name, []):
                yield from shown(field.record, field.members, element)
        elif field.name in values:
            value = values[field.name]
            yield filter_name(owner, field), f"{value:#010x}" if field.kind == "pointer" else str(value)


def damaged_packets() -> list[Packet]:
    """Bodies of every kind with one thing wrong at random."""
    chance = random.Random(1)
    packets = []
    for number in range(DAMAGED_BODIES):
        body = chance.choice(list(INTERFACE.bodies.values()))
        data = bytearray(wire.encode_body(body, INTERFACE.prologue, Readable(number).of(body.fields)))
        at = chance.randrange(len(data))
        if number % 3 == 0:
            del data[at:]
        elif number % 3 == 1:
            data[at & ~3 | 3] ^= 1 << chance.randrange(5)
        else:
            data[at] ^= 1 << chance.randrange(8)
        packets.append(Packet(DIRECTIONS.index(body.direction), 0, body.index, 0, b"", b"", bytes(data)))
    return packets


def edge_packets() -> list[Packet]:
    """Bodies with everything that there is room for, and bodies with one text that is a character longer than that."""
    packets = []
    for body in INTERFACE.bodies.values():
        largest = wire.encode_body(body, INTERFACE.prologue, Largest().of(body.fields))
        longer = [
            wire.encode_body(replace(body, fields=fields), INTERFACE.prologue, Only(text).of(fields))
            for fields, text in widened_texts(body.fields)
        ]
        direction = DIRECTIONS.index(body.direction)
        packets += [Packet(direction, 0, body.index, 0, b"", b"", data) for data in [largest, *longer]]
    return packets


class Readable(Values):
    """Texts that tshark shows as they are."""

    def text(self, field: Field) -> str:
        return "abc" * ((field.capacity - 1) // 3) if self.random.randrange(4) == 0 else "xyz"

    def count(self, field: Field) -> int:
        return self.random.choice((0, 1, 2, field.capacity + 1))


class Dissector(unittest.TestCase):
    maxDiff = None

    def compare(self, file: Path) -> list[list[str]]:
        """What the dissector says of each packet, which has to be what the decoder says."""
        found = dissect(file, [*filters(), EXPERT])
        messages = [message.of_packet(INTERFACE, packet) for packet in capture.read(file.read_bytes())]
        self.assertEqual(len(found), len(messages))
        complaints = [fields.pop(EXPERT) for fields in found]
        for number, (fields, experts, each) in enumerate(zip(found, complaints, messages), 1):
            with self.subTest(packet=number, what=each.what):
                self.assertEqual(self.printable(fields), self.printable(expected(each)))
                if each.what:
                    self.assertEqual(experts, self.decoder_says(each))
        return complaints

    def compare_packets(self, packets: list[Packet]) -> list[list[str]]:
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "packets.pcap"
            file.write_bytes(capture.write(packets))
            return self.compare(file)

    @staticmethod
    def decoder_says(each: Message) -> list[str]:
        notes = [note for item in each.decoded.items for note in item.notes]
        return notes + ([str(each.decoded.problem)] if each.decoded.problem else [])

    @staticmethod
    def printable(fields: dict[str, list[str]]) -> dict[str, list[str]]:
        """An empty text is no value to tshark, nor is a text that is not ASCII the same everywhere."""
        return {name: [value for value in values if value and value.isascii() and value.isprintable()]
                for name, values in fields.items()}

    def test_the_sample_is_shown_as_the_decoder_shows_it(self) -> None:
        self.compare(SAMPLE)

    def test_the_sample_holds_every_body(self) -> None:
        found = [message.of_packet(INTERFACE, packet) for packet in capture.read(SAMPLE.read_bytes())]
        self.assertLessEqual(set(INTERFACE.bodies), {each.what for each in found if each.sound})
        self.assertEqual(SAMPLE.read_bytes(), sample(INTERFACE, vectors()))

    def test_damage_is_shown_as_the_decoder_shows_it(self) -> None:
        complaints = self.compare_packets(damaged_packets())
        self.assertGreater(sum(map(bool, complaints)), DAMAGED_BODIES // 2)

    def test_edges_are_where_the_decoder_has_them(self) -> None:
        complaints = self.compare_packets(edge_packets())
        self.assertEqual(complaints.count([]), len(INTERFACE.bodies))

    def test_the_list_of_packets(self) -> None:
        info = [each["_ws.col.Info"][0] for each in dissect(SAMPLE, ["_ws.col.Info", "frame.number"])]
        self.assertEqual(info[:2], ["SetOsIfc request, sent", "SetOsIfc response, received"])
        self.assertEqual(info[21:24], ["PrefixStatus notification, received", "SetMtu request, sent (damaged)",
                                       "SetMtu response, received"])
        self.assertEqual(info[-1], "unknown method 3, 2 (damaged)")

    def test_requests_and_responses_find_each_other(self) -> None:
        pairs = dissect(SAMPLE, ["frame.number", "gorvanet.response_in", "gorvanet.response_to"], "-2")
        self.assertEqual(pairs[0]["gorvanet.response_in"], ["2"])
        self.assertEqual(pairs[1]["gorvanet.response_to"], ["1"])
        one_way = pairs[16]
        self.assertEqual((one_way["gorvanet.response_in"], one_way["gorvanet.response_to"]), ([], []))

    def test_a_filter_finds_a_field(self) -> None:
        found = tshark(SAMPLE, "-Y", "gorvanet.setmtu.mtu == 1400", "-T", "fields", "-e", "gorvanet.name")
        self.assertEqual(found, ["SetMtu"])
        found = tshark(SAMPLE, "-Y", "gorvanet.damaged", "-T", "fields", "-e", "frame.number")
        self.assertEqual(found, ["23", "25", "27", "28"])

    def test_packets_that_are_not_whole(self) -> None:
        whole = capture.write_packet(next(capture.read(SAMPLE.read_bytes())))
        head = SAMPLE.read_bytes()[:24]
        shown = []
        for data in (whole[:3], whole[:20], whole[:-1], whole + b"\0", b"GVN2" + whole[4:]):
            with tempfile.TemporaryDirectory() as folder:
                file = Path(folder) / "cut.pcap"
                file.write_bytes(head + bytes(8) + len(data).to_bytes(4, "big") * 2 + data)
                shown += dissect(file, [EXPERT, "frame.number"])[0][EXPERT]
        mark = "no mark GVN1, or cut off behind it"
        cuts = ["cut off after 20 bytes", f"cut off after {len(whole) - 1} bytes"]
        self.assertEqual(shown, [mark, *cuts, "1 bytes left over behind the body", mark])


if __name__ == "__main__":
    unittest.main()
