"""The codec of gorvanet-decode on bytes written down here: what it says of damage and of oddities, and where."""

from __future__ import annotations

import random
import unittest
from typing import Any

from support import INTERFACE, Largest, Values, vector_values, vectors

from gorvanet_decode import wire

SET_DHCP = INTERFACE.bodies["SetDhcp.request"]
REGISTER = INTERFACE.bodies["RegisterPrefixStatus.request"]
PREFIX_STATUS = INTERFACE.bodies["PrefixStatus.notification"]

PROLOGUE = "00000000 00000004 39132011 00000001 00000004 00000000"
IF_NAME = "00000003 00000008 65746830 00000000"  # eth0
DHCP = "00000004 00000004 00000001"


def decode(*items: str) -> wire.Decoded:
    return wire.decode_body(SET_DHCP, INTERFACE.prologue, bytes.fromhex("".join(items)))


class Damage(unittest.TestCase):
    def expect(self, decoded: wire.Decoded, problem: str, values: dict[str, Any]) -> None:
        self.assertEqual(str(decoded.problem), problem)
        self.assertEqual(decoded.values.get("fields"), values)

    def test_none(self) -> None:
        decoded = decode(PROLOGUE, IF_NAME, DHCP)
        self.assertIsNone(decoded.problem)
        self.assertEqual(decoded.notes, [])
        expected = {"magic": 0x39132011, "version": 0, "fields": {"ifName": "eth0", "dhcp": 1}}
        self.assertEqual(decoded.values, expected)
        self.assertEqual([item.offset for item in decoded.items], [0, 12, 24, 40])
        self.assertEqual([item.size for item in decoded.items], [12, 12, 16, 12])

    def test_the_end_is_missing(self) -> None:
        name = {"ifName": "eth0"}
        self.expect(decode(PROLOGUE, IF_NAME), "at 0x28, dhcp: an item begins with 8 bytes, 0 are left", name)
        cut = decode(PROLOGUE, IF_NAME, "00000004 000000")
        self.expect(cut, "at 0x28, dhcp: an item begins with 8 bytes, 7 are left", name)
        cut = decode(PROLOGUE, IF_NAME, "00000004 00000004 000000")
        self.expect(cut, "at 0x28, dhcp: 4 bytes announced, 3 are left", name)

    def test_every_cut_is_seen(self) -> None:
        for body in INTERFACE.bodies.values():
            data = wire.encode_body(body, INTERFACE.prologue, Values(1).of(body.fields))
            for size in range(len(data)):
                problem = wire.decode_body(body, INTERFACE.prologue, data[:size]).problem
                assert problem, f"{body.name} cut to {size} bytes"
                self.assertLessEqual(problem.offset, size)

    def test_wrong_tag(self) -> None:
        wrong = decode(PROLOGUE, IF_NAME, "00000005 00000004 00000001")
        self.expect(wrong, "at 0x28, dhcp: tag 5 (length 4), expected 4", {"ifName": "eth0"})

    def test_wrong_prologue(self) -> None:
        magic = decode("00000000 00000004 39132012")
        self.assertEqual(str(magic.problem), "at 0x0, magic: 0x39132012, expected 0x39132011")
        version = decode(PROLOGUE[:-1], "1", IF_NAME)
        self.assertEqual(str(version.problem), "at 0xc, version: 1, expected 0")

    def test_a_number_that_is_too_short(self) -> None:
        short = decode(PROLOGUE, IF_NAME, "00000004 00000003 000000")
        self.expect(short, "at 0x28, dhcp: 3 bytes, at least 4 needed", {"ifName": "eth0"})

    def test_a_text_without_an_end(self) -> None:
        self.expect(decode(PROLOGUE, "00000003 00000004 65746830", DHCP), "at 0x18, ifName: no NUL in 4 bytes", {})
        self.expect(decode(PROLOGUE, "00000003 00000000", DHCP), "at 0x18, ifName: 0 bytes, at least 1 needed", {})

    def test_a_text_that_does_not_fit(self) -> None:
        fits = decode(PROLOGUE, "00000003 00000034", "78" * 49, "000000", DHCP)
        self.assertEqual(fits.values["fields"]["ifName"], "x" * 49)
        longer = decode(PROLOGUE, "00000003 00000034", "78" * 50, "0000", DHCP)
        self.expect(longer, "at 0x18, ifName: 51 bytes with the NUL, 50 fit", {})

    def test_bytes_left_over(self) -> None:
        more = decode(PROLOGUE, IF_NAME, DHCP, "00")
        values = {"ifName": "eth0", "dhcp": 1}
        self.expect(more, "at 0x34, the end: 1 bytes left over behind the last item", values)

    def test_within_a_list(self) -> None:
        data = vectors()["PrefixStatus.notification"].data
        decoded = wire.decode_body(PREFIX_STATUS, INTERFACE.prologue, data[:-1])
        self.assertEqual(
            str(decoded.problem), "at 0x130, prefixes.prefixes[1].field12: 4 bytes announced, 3 are left"
        )
        last = decoded.values["fields"]["prefixes"]["prefixes"][1]
        self.assertEqual((last["field3"], last["field11"]), ("2001:db8:4::", ""))
        self.assertNotIn("field12", last)

    def test_a_wide_item(self) -> None:
        head = "00000000 00000004 20150227 00000001 00000004 00000000 00000003 00000004 00000001"
        for wide, expected in (
            ("0000000100000004 0000000000000008 0000000000000001", "tag 4294967300 (length 8), expected 4"),
            ("0000000000000004 0000000000000007 00000000000000", "7 bytes, at least 8 needed"),
            ("0000000000000004 0000000000000008 0000000100000000", "0x100000000 does not fit 32 bits"),
            ("0000000000000004 00000000000000", "an item begins with 16 bytes, 15 are left"),
        ):
            decoded = wire.decode_body(REGISTER, INTERFACE.prologue, bytes.fromhex(head + wide))
            self.assertEqual(str(decoded.problem), f"at 0x24, pointer: {expected}")
            self.assertEqual(decoded.values["fields"], {"first": 1})


    def test_any_bytes_give_an_answer(self) -> None:
        chance = random.Random(3)
        for body in INTERFACE.bodies.values():
            data = wire.encode_body(body, INTERFACE.prologue, Largest().of(body.fields))
            for _ in range(50):
                changed = bytearray(data[: chance.randint(0, len(data))])
                for _ in range(min(len(changed), chance.randint(0, 8))):
                    changed[chance.randrange(len(changed))] = chance.randrange(256)
                decoded = wire.decode_body(body, INTERFACE.prologue, bytes(changed))
                end = max((item.offset + item.size for item in decoded.items if item.kind != "record"), default=0)
                self.assertLessEqual(end, len(changed))
                if decoded.problem is None:
                    self.assertEqual(end, len(changed))


class Oddities(unittest.TestCase):
    def test_a_longer_text_item(self) -> None:
        decoded = decode(PROLOGUE, "00000003 0000000c 65746830 00000000 00000000", DHCP)
        self.assertIsNone(decoded.problem)
        self.assertEqual(decoded.notes, ["at 0x18, ifName: length 12, where the encoder writes 8"])

    def test_bytes_behind_the_nul(self) -> None:
        decoded = decode(PROLOGUE, "00000003 00000008 65746800 00000001", DHCP)
        self.assertEqual(decoded.values["fields"]["ifName"], "eth")
        self.assertEqual(decoded.notes, ["at 0x18, ifName: bytes other than 0 behind the NUL"])

    def test_of_the_version_the_low_bits_count(self) -> None:
        decoded = decode(PROLOGUE[:-8], "00020000", IF_NAME, DHCP)
        self.assertIsNone(decoded.problem)
        self.assertEqual(decoded.notes, ["at 0xc, version: 0x00020000 on the wire, of which the low bits count"])

    def test_a_count_beyond_the_capacity(self) -> None:
        values = Largest().of(PREFIX_STATUS.fields)
        values["prefixes"]["field3"] = 11
        data = wire.encode_body(PREFIX_STATUS, INTERFACE.prologue, values)
        decoded = wire.decode_body(PREFIX_STATUS, INTERFACE.prologue, data)
        self.assertIsNone(decoded.problem)
        self.assertEqual(len(decoded.values["fields"]["prefixes"]["prefixes"]), 10)
        self.assertRegex(decoded.notes[0], "field3: more than the 10 that there is room for, and that follow$")

    def test_a_text_that_is_no_utf_8_comes_back(self) -> None:
        data = bytes.fromhex(f"{PROLOGUE} 00000003 00000008 ff66fe00 00000000 {DHCP}")
        values = wire.decode_body(SET_DHCP, INTERFACE.prologue, data).values["fields"]
        self.assertEqual(wire.encode_body(SET_DHCP, INTERFACE.prologue, values), data)


class Encoding(unittest.TestCase):
    def test_a_text_is_padded_to_the_length_of_the_table(self) -> None:
        for size, length in ((0, 4), (1, 4), (2, 4), (3, 8), (4, 8), (5, 8), (6, 8), (7, 12), (45, 48)):
            self.assertEqual(wire.text_length(size), length, f"{size} characters")

    def test_vectors(self) -> None:
        for name, vector in vectors().items():
            body = INTERFACE.bodies[name]
            with self.subTest(name):
                data = vector.data
                self.assertEqual(wire.encode_body(body, INTERFACE.prologue, vector_values(body, vector)), data)
                decoded = wire.decode_body(body, INTERFACE.prologue, data)
                self.assertEqual(decoded.values["fields"], vector_values(body, vector))
                self.assertEqual((decoded.problem, decoded.notes), (None, []))
                offsets = [sum(len(line.data) for line in vector.lines[:i]) for i in range(len(vector.lines))]
                self.assertEqual([item.offset for item in decoded.items if item.kind != "record"], offsets)

    def test_what_cannot_be_encoded(self) -> None:
        good: dict[str, Any] = {"ifName": "eth0", "dhcp": 1}
        for values, expected in (
            ({"ifName": "eth0"}, "dhcp: missing"),
            (good | {"mtu": 1}, "mtu: there is no such field"),
            (good | {"dhcp": -1}, "dhcp: -1 is no number from 0 to 4294967295"),
            (good | {"dhcp": 1 << 32}, "dhcp: 4294967296 is no number from 0 to 4294967295"),
            (good | {"dhcp": True}, "dhcp: True is no number from 0 to 4294967295"),
            (good | {"dhcp": "1"}, "dhcp: '1' is no number from 0 to 4294967295"),
            (good | {"ifName": 5}, "ifName: 5 is no text"),
            (good | {"ifName": "a\0b"}, "ifName: a NUL within the text"),
            (good | {"ifName": "x" * 50}, "ifName: 50 bytes, at most 49 fit"),
            ([], "fields: [] is no object"),
        ):
            with self.subTest(expected), self.assertRaises(wire.CannotEncode) as raised:
                wire.encode_body(SET_DHCP, INTERFACE.prologue, values)  # type: ignore[arg-type]
            self.assertEqual(str(raised.exception), expected)

    def test_elements_have_to_be_as_many_as_travel(self) -> None:
        values = Largest().of(PREFIX_STATUS.fields)
        prefixes = values["prefixes"]
        for count, there, expected in (
            (3, 2, "prefixes.prefixes: 2 elements, 3 travel"),
            (11, 9, "prefixes.prefixes: 9 elements, 10 travel"),
            (1, 2, "prefixes.prefixes: 2 elements, 1 travel"),
        ):
            changed = values | {"prefixes": {"field3": count, "prefixes": prefixes["prefixes"][:there]}}
            with self.assertRaises(wire.CannotEncode) as raised:
                wire.encode_body(PREFIX_STATUS, INTERFACE.prologue, changed)
            self.assertEqual(str(raised.exception), expected)

    def test_elements_have_to_be_a_list(self) -> None:
        with self.assertRaises(wire.CannotEncode) as raised:
            wire.encode_body(PREFIX_STATUS, INTERFACE.prologue, {"name": "", "prefixes": {"prefixes": 2}})
        self.assertEqual(str(raised.exception), "prefixes.prefixes: 2 is no list")

    def test_a_count_may_be_left_out(self) -> None:
        values = Largest().of(PREFIX_STATUS.fields)
        whole = wire.encode_body(PREFIX_STATUS, INTERFACE.prologue, values)
        del values["prefixes"]["field3"]
        self.assertEqual(wire.encode_body(PREFIX_STATUS, INTERFACE.prologue, values), whole)

    def test_an_element_is_named_by_its_path(self) -> None:
        values = Largest().of(PREFIX_STATUS.fields)
        values["prefixes"]["prefixes"][7]["field12"] = 256
        with self.assertRaises(wire.CannotEncode) as raised:
            wire.encode_body(PREFIX_STATUS, INTERFACE.prologue, values)
        expected = "prefixes.prefixes[7].field12: 256 is no number from 0 to 255"
        self.assertEqual(str(raised.exception), expected)


if __name__ == "__main__":
    unittest.main()
