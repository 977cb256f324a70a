"""The description and the library say the same.

Everything in the description is true of the library: what the codec makes of it, by the description alone, is what the
library makes of it, byte by byte, on the wire and in memory. And the library has nothing that is not in the
description: no function, no method, no body, and no member or item, for then sizes or bytes would differ.
"""

from __future__ import annotations

import random
import re
import unittest
from collections.abc import Iterator
from dataclasses import dataclass, replace
from typing import Any

import memory
from probe import Probe
from support import DOCUMENT, INTERFACE, ROOT, Largest, Only, Values, Zeroes, vector_values, vectors, widened_texts

from gorvanet_decode import wire
from gorvanet_decode.description import Body, Field

RANDOM_VALUES = 40  # of each body and record
DAMAGED_BODIES = 100  # and bytes of it with a few of them changed

ACCEPTED, UNKNOWN_TYPE, BAD_PROLOGUE, BAD_FIELD, BAD_POINTER = 0, 1, 2, 4, 12
REQUEST, RESPONSE = 0, 1


def as_number(text: str) -> int:
    return int(text, 16)


@dataclass(frozen=True)
class Codec:
    """A body or a record, through the library and through the description."""

    probe: Probe
    name: str
    fields: tuple[Field, ...]
    functions: dict[str, str]
    body: Body | None = None

    @property
    def kind(self) -> int:
        return RESPONSE if self.body and self.body.direction == "response" else REQUEST

    def encode(self, values: dict[str, Any]) -> bytes:
        if self.body:
            return wire.encode_body(replace(self.body, fields=self.fields), INTERFACE.prologue, values)
        return wire.encode_fields(self.fields, values)

    def decode(self, data: bytes) -> wire.Decoded:
        if self.body:
            return wire.decode_body(self.body, INTERFACE.prologue, data)
        return wire.decode_record(self.fields, data)

    def values(self, decoded: wire.Decoded) -> Any:
        return decoded.values["fields"] if self.body else decoded.values

    def image(self, values: dict[str, Any]) -> bytes:
        if self.body:
            return memory.image(memory.BODY_HEAD + self.fields, {**values, "magic": self.body.magic, "flag": 0})
        return memory.image(self.fields, values)

    def encoded_by_library(self, image: bytes) -> bytes:
        if self.body:
            answer = self.probe.body(self.functions["serializeBody"], self.kind, image)
        else:
            size = self.probe.serialize_lg(self.functions["serialize_lg"], image)
            answer = self.probe.serialize(self.functions["serialize"], size, image)
            assert len(answer.data) == size, f"{self.name}: serialize_lg {size}, serialize {len(answer.data)}"
        assert answer.status == ACCEPTED, f"{self.name}: serialize gives {answer.status}"
        return answer.data

    def decoded_by_library(self, data: bytes) -> tuple[int, bytes]:
        """Status and memory."""
        if self.body:
            answer = self.probe.body(self.functions["unserializeBody"], self.kind, data)
        else:
            size = len(self.image({}))
            answer = self.probe.unserialize(self.functions["unserialize"], size, data)
            assert answer.status or answer.consumed == len(data), f"{self.name}: {answer.consumed} bytes read"
        return answer.status, answer.data


class LibraryTest(unittest.TestCase):
    probe: Probe
    codecs: list[Codec]

    @classmethod
    def setUpClass(cls) -> None:
        cls.probe = Probe()
        methods = {method["name"]: method["functions"] for method in DOCUMENT["methods"]}
        records = {record["name"]: record["functions"] for record in DOCUMENT["records"]}
        cls.codecs = [
            Codec(cls.probe, body.name, body.fields, methods[body.method], body) for body in INTERFACE.bodies.values()
        ]
        cls.codecs += [Codec(cls.probe, name, INTERFACE.records[name], of) for name, of in records.items()]

    @classmethod
    def tearDownClass(cls) -> None:
        status = cls.probe.close()
        assert status == 0, f"the process of the library ended with {status}"


class Frame(LibraryTest):
    """Names and numbers."""

    def test_every_exported_name_is_described(self) -> None:
        described = [*DOCUMENT["functions"], "gorvaNet_base"]
        for each in DOCUMENT["records"] + DOCUMENT["methods"]:
            described += each["functions"].values()
        exported = re.findall(r"^ +(\w+);", (ROOT / "src" / "exports.map").read_text(encoding="ascii"), re.MULTILINE)
        self.assertCountEqual(described, exported)

    def test_every_magic_of_the_header_is_described(self) -> None:
        header = (ROOT / "include" / "gorvanet.h").read_text(encoding="ascii")
        defined = dict(re.findall(r"^#define (GORVANET_MAGIC_\w+) +(0x\w+)u", header, re.MULTILINE))
        described = {method["magic_name"]: method["magic"] for method in DOCUMENT["methods"]}
        described["GORVANET_MAGIC_BASE"] = DOCUMENT["magic"]
        described["GORVANET_MAGIC_CMD"] = DOCUMENT["blocks"]["command"]["magic"]
        described["GORVANET_MAGIC_NTFY"] = DOCUMENT["blocks"]["notification"]["magic"]
        described["GORVANET_MAGIC_FREE"] = DOCUMENT["free_magic"]
        self.assertEqual(described, defined)

    def test_the_descriptor_holds_the_described_methods_and_no_others(self) -> None:
        base = self.probe.document("base")
        self.assertEqual((base["name"], base["magic"]), (DOCUMENT["interface"], as_number(DOCUMENT["magic"])))
        for name, block in DOCUMENT["blocks"].items():
            methods = [method for method in DOCUMENT["methods"] if method["interface"] == name]
            rows = [self.row(method) for method in methods]
            expected = {"name": block["name"], "magic": as_number(block["magic"]), "count": len(rows), "methods": rows}
            self.assertEqual(base[name], expected)

    @staticmethod
    def row(method: dict[str, Any]) -> dict[str, Any]:
        of = ("receive", "freeBody", "serializeBody", "unserializeBody", "logBody")
        return {"name": method["name"], "index": method["index"]} | {name: method["functions"][name] for name in of}

    def test_accepting_hands_index_and_accept_magic_to_the_bus(self) -> None:
        for method in DOCUMENT["methods"]:
            with self.subTest(method["name"]):
                function, words = self.probe.call(method["functions"]["accept"])
                command = method["interface"] == "command"
                self.assertEqual(function, "zebIntf_modSrv_mthd" if command else "zebIntf_modCliNtfyUser_mthd")
                self.assertEqual(words[4], as_number(method["accept_magic"]))
                self.assertEqual(words[8 if command else 10], method["index"])

    def test_sending_hands_the_index_and_a_receiver_for_the_response_to_the_bus(self) -> None:
        for method in DOCUMENT["methods"]:
            with self.subTest(method["name"]):
                function, words = self.probe.call(method["functions"]["send"])
                if method["interface"] == "notification":
                    self.assertEqual(function, "zebIntf_sendReq_ntfy")
                    continue
                self.assertEqual(function, "zebCore_sendMsgReq_toNameUser")
                self.assertEqual(words[8], method["index"])
                self.assertEqual(words[2] != 0, method["response"] is not None)

    def test_responding_answers_the_message(self) -> None:
        for method in DOCUMENT["methods"]:
            with self.subTest(method["name"]):
                self.assertEqual("respond" in method["functions"], method["response"] is not None)
                if method["response"] is not None:
                    function, words = self.probe.call(method["functions"]["respond"])
                    self.assertEqual((function, words[2]), ("zebCore_sendMsgRes", 0))

    def test_other_directions_are_refused(self) -> None:
        for method in DOCUMENT["methods"]:
            missing = [2, 0xFFFFFFFF] + [RESPONSE] * (method["response"] is None)
            for kind in missing:
                for operation in ("serializeBody", "unserializeBody"):
                    answer = self.probe.body(method["functions"][operation], kind, bytes(64))
                    self.assertEqual(answer.status, UNKNOWN_TYPE, f"{method['name']}: {operation}, type {kind}")


class Content(LibraryTest):
    """Values: memory and bytes, both ways."""

    def expect_same(self, codec: Codec, values: dict[str, Any]) -> None:
        encoded, image = codec.encode(values), codec.image(values)
        self.assertEqual(codec.encoded_by_library(image).hex(" ", 4), encoded.hex(" ", 4))
        self.assertEqual(codec.decoded_by_library(encoded), (ACCEPTED, image))
        decoded = codec.decode(encoded)
        self.assertIsNone(decoded.problem)
        self.assertEqual(codec.values(decoded), values)

    def test_the_least_and_the_most_of_everything(self) -> None:
        for codec in self.codecs:
            for choice in (Zeroes(), Largest()):
                with self.subTest(codec.name, choice=type(choice).__name__):
                    self.expect_same(codec, choice.of(codec.fields))

    def test_values_at_random(self) -> None:
        for codec in self.codecs:
            for seed in range(RANDOM_VALUES):
                with self.subTest(codec.name, seed=seed):
                    self.expect_same(codec, Values(seed).of(codec.fields))

    def test_golden_vectors(self) -> None:
        found = vectors()
        self.assertCountEqual(found, INTERFACE.bodies)
        for codec in self.codecs:
            if codec.body:
                with self.subTest(codec.name):
                    values = vector_values(codec.body, found[codec.name])
                    self.assertEqual(codec.encode(values), found[codec.name].data)
                    self.expect_same(codec, values)

    def test_a_list_has_as_many_elements_as_its_count_says_and_room_for(self) -> None:
        for codec in self.codecs:
            for each in lists_in(codec.fields):
                for count in (*range(each.capacity + 2), 0xFFFFFFFF):
                    with self.subTest(codec.name, list=each.name, count=count):
                        self.expect_same(codec, Counted(each, count).of(codec.fields))

    def test_a_text_of_one_character_more_is_refused(self) -> None:
        for codec in self.codecs:
            for widened, text in widened_texts(codec.fields):
                with self.subTest(codec.name, text=text.name):
                    data = replace(codec, fields=widened).encode(Only(text).of(widened))
                    self.assertEqual(codec.decoded_by_library(data)[0], BAD_FIELD)
                    expected = f"{text.capacity} bytes with the NUL, {text.capacity - 1} fit$"
                    self.assertRegex(str(codec.decode(data).problem), expected)


class Counted(Values):
    """One list with this count, the others empty but for what leads to it."""

    def __init__(self, which: Field, how_many: int) -> None:
        super().__init__(how_many)
        self.which = which
        self.how_many = how_many

    def count(self, field: Field) -> int:
        return self.how_many if field == self.which else int(self.which in lists_in(field.members))


def damaged(data: bytes, chance: random.Random) -> bytes:
    """With some bytes changed, most often in the last of a word, where tags, lengths and small numbers have theirs."""
    changed = bytearray(data)
    for _ in range(chance.randint(1, 3)):
        at = chance.randrange(len(changed))
        changed[at | 3 if chance.randrange(2) and at | 3 < len(changed) else at] = chance.choice((0, 1, 4, 0x41, 0xFF))
    return bytes(changed)


def lists_in(fields: tuple[Field, ...]) -> list[Field]:
    return [field for field in all_fields(fields) if field.kind == "list"]


def all_fields(fields: tuple[Field, ...]) -> Iterator[Field]:
    for field in fields:
        yield field
        yield from all_fields(field.members)


class Items(LibraryTest):
    """What the decoder accepts and refuses of an item, shown on each item of a body with all its lists."""

    class One(Largest):
        def count(self, field: Field) -> int:
            return 1

    def samples(self) -> Iterator[tuple[Codec, bytes, wire.Item]]:
        for codec in self.codecs:
            data = codec.encode(self.One().of(codec.fields))
            for item in codec.decode(data).items:
                if item.kind != "record":
                    yield codec, data, item

    def test_each_tag_is_asked_for(self) -> None:
        for codec, data, item in self.samples():
            width = 8 if item.kind == "pointer" else 4
            tag = int.from_bytes(data[item.offset : item.offset + width], "big")
            for other in (tag + 1, tag ^ 1 << (8 * width - 1)):
                with self.subTest(codec.name, item=item.name, tag=other):
                    changed = data[: item.offset] + other.to_bytes(width, "big") + data[item.offset + width :]
                    prologue = codec.body is not None and item.offset < 24
                    self.assertEqual(codec.decoded_by_library(changed)[0], BAD_PROLOGUE if prologue else BAD_FIELD)
                    problem = codec.decode(changed).problem
                    assert problem
                    self.assertEqual(problem.offset, item.offset)
                    self.assertTrue(problem.text.startswith(f"tag {other} "), problem.text)

    def test_a_longer_item_is_skipped_whole(self) -> None:
        for codec, data, item in self.samples():
            with self.subTest(codec.name, item=item.name):
                at = item.offset + (12 if item.kind == "pointer" else 4)
                length = int.from_bytes(data[at : at + 4], "big") + 4
                end = item.offset + item.size
                changed = data[:at] + length.to_bytes(4, "big") + data[at + 4 : end] + bytes(4) + data[end:]
                self.assertEqual(codec.decoded_by_library(changed), codec.decoded_by_library(data))
                decoded = codec.decode(changed)
                self.assertIsNone(decoded.problem)
                self.assertEqual(decoded.values, codec.decode(data).values)
                self.assertEqual(len(decoded.notes), 1)

    def test_of_a_small_number_the_low_bits_count(self) -> None:
        for codec, data, item in self.samples():
            if item.kind in ("u8", "s8", "u16"):
                with self.subTest(codec.name, item=item.name):
                    at = item.offset + 8
                    changed = data[:at] + bytes((0xA5, data[at + 1] ^ 0x80)) + data[at + 2 :]
                    self.assertEqual(codec.decoded_by_library(changed), codec.decoded_by_library(data))
                    decoded = codec.decode(changed)
                    self.assertEqual(decoded.values, codec.decode(data).values)
                    self.assertRegex(decoded.notes[0], "0xa5.* on the wire")

    def test_another_version_is_refused(self) -> None:
        for codec, data, item in self.samples():
            if codec.body and item.name == "version":
                with self.subTest(codec.name):
                    changed = data[:20] + (item.value + 1).to_bytes(4, "big") + data[24:]
                    self.assertEqual(codec.decoded_by_library(changed)[0], BAD_PROLOGUE)
                    self.assertRegex(str(codec.decode(changed).problem), r"^at 0xc, version: \d, expected \d$")

    def test_a_pointer_of_more_than_32_bits_is_refused(self) -> None:
        pointers = [sample for sample in self.samples() if sample[2].kind == "pointer"]
        self.assertEqual(len(pointers), 1)
        for codec, data, item in pointers:
            at = item.offset + 16
            changed = data[:at] + (1 << 32).to_bytes(8, "big") + data[at + 8 :]
            self.assertEqual(codec.decoded_by_library(changed)[0], BAD_POINTER)
            self.assertRegex(str(codec.decode(changed).problem), "0x100000000 does not fit 32 bits$")

    def test_what_the_decoder_calls_sound_the_library_takes_as_it_is(self) -> None:
        chance = random.Random(2)
        taken = 0
        for codec in self.codecs:
            data = codec.encode(self.One().of(codec.fields))
            for _ in range(DAMAGED_BODIES):
                changed = damaged(data, chance)
                decoded = codec.decode(changed)
                if decoded.problem is None:
                    taken += changed != data
                    with self.subTest(codec.name, bytes=changed.hex(" ", 4)):
                        expected = (ACCEPTED, codec.image(codec.values(decoded)))
                        self.assertEqual(codec.decoded_by_library(changed), expected)
        self.assertGreater(taken, len(self.codecs) * DAMAGED_BODIES // 20)

    def test_what_is_sound_without_an_item_the_library_takes_too(self) -> None:
        for codec, data, item in self.samples():
            with self.subTest(codec.name, item=item.name):
                changed = data[: item.offset] + data[item.offset + item.size :]
                if codec.decode(changed).problem is None:
                    self.assertEqual(codec.decoded_by_library(changed)[0], ACCEPTED)


class Layouts(LibraryTest):
    """The hosts' table, written by hand, against the description."""

    KINDS = {"u8": "number", "u32": "number", "s8": "signed_number", "pointer": "wide"}

    def described(self, fields: tuple[Field, ...]) -> list[dict[str, Any]]:
        return [
            {
                "name": field.name,
                "tag": max(field.tag, 0),
                "kind": self.KINDS.get(field.kind, field.kind),
                "capacity": field.capacity,
                "members": self.described(field.members),
            }
            for field in fields
        ]

    def row(self, body: Body) -> dict[str, Any]:
        # A body that is a record and nothing else has the record's fields there.
        fields = body.fields[0].members if [each.kind for each in body.fields] == ["record"] else body.fields
        return {
            "method": body.method,
            "interface": "notification" if body.direction == "notification" else "command",
            "index": body.index,
            "direction": RESPONSE if body.direction == "response" else REQUEST,
            "magic": body.magic,
            "version": body.version,
            "fields": self.described(fields),
        }

    def test_the_table_is_the_description(self) -> None:
        self.maxDiff = None
        self.assertEqual(self.probe.document("layouts"), [self.row(body) for body in INTERFACE.bodies.values()])


if __name__ == "__main__":
    unittest.main()
