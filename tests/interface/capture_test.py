"""The capture format: docs/capture.md, packets written down here, and gorvanet-decode on them."""

from __future__ import annotations

import json
import re
import struct
import unittest
from typing import Any

from command_test import DAMAGED, SOUND, UNREADABLE, Command, run
from support import ROOT, vectors

SET_MTU = vectors()["SetMtu.request"].data
PREFIX_STATUS = vectors()["PrefixStatus.notification"].data


def file(*packets: bytes, order: str = ">", magic: int = 0xA1B2C3D4, link_type: int = 147, fraction: int = 5) -> bytes:
    head = struct.pack(order + "IHHiIII", magic, 2, 4, 0, 0, 262144, link_type)
    heads = [struct.pack(order + "IIII", 1700000000, fraction, len(each), len(each)) for each in packets]
    return head + b"".join(a + b for a, b in zip(heads, packets))


def packet(head: str, user: bytes, interface: bytes, body: bytes) -> bytes:
    names = b"".join(len(name).to_bytes(2, "big") + name for name in (user, interface))
    return b"GVN1" + bytes.fromhex(head) + names + len(body).to_bytes(4, "big") + body


REQUEST = packet("00 00 0006 00000001", b"ip-service", b"GorvaNet", SET_MTU)
NOTIFICATION = packet("02 01 0000 00000000", b"", b"", PREFIX_STATUS)
FAILED_DELIVERY = packet("01 01 0006 00000001", b"ip-service", b"GorvaNet", b"")


class Capture(Command):
    def of(self, data: bytes, status: int = SOUND) -> list[dict[str, Any]]:
        return self.documents(run("--json", given=data), status)

    def test_the_example_of_the_document(self) -> None:
        text = (ROOT / "docs" / "capture.md").read_text(encoding="ascii").partition("## An example")[2]
        rows = re.findall(r"^    ([0-9a-f]{4})  ((?: ?[0-9a-f]{2}(?= )| (?= ))+)", text, re.MULTILINE)
        data = b""
        for offset, digits in rows:
            self.assertEqual(len(data), int(offset, 16))
            data += bytes.fromhex(digits)
        self.assertEqual(len(data), int(re.findall(r"; (\d+) bytes\.$", text, re.MULTILINE)[0]))
        self.assertEqual(data, REQUEST)

    def test_a_packet(self) -> None:
        expected = {
            "packet": {
                "time": "1700000000.000005000",
                "direction": "request",
                "side": "sent",
                "method": 6,
                "request": 1,
                "user": "ip-service",
                "interface": "GorvaNet",
            },
            "body": "SetMtu.request",
            "fields": {"mtu": 1400},
        }
        self.assertEqual(self.of(file(REQUEST)), [expected])

    def test_both_byte_orders_and_both_units(self) -> None:
        for order in (">", "<"):
            for magic, time in ((0xA1B2C3D4, "1700000000.000005000"), (0xA1B23C4D, "1700000000.000000005")):
                found = self.of(file(REQUEST, NOTIFICATION, order=order, magic=magic))
                self.assertEqual([each["packet"]["time"] for each in found], [time] * 2)
                self.assertEqual(found[0]["fields"], {"mtu": 1400})

    def test_a_tree(self) -> None:
        lines = run(given=file(REQUEST, NOTIFICATION)).stdout.decode().splitlines()
        expected = "2023-11-14 22:13:20.000005000, sent request, number 1, "
        expected += 'user "ip-service", interface "GorvaNet", SetMtu, 36 bytes'
        self.assertEqual(lines[:5], [expected, *("  0000  magic    0x20190222", "  000c  version  0")]
                         + ["  0018  mtu      1400", ""])
        expected = "2023-11-14 22:13:20.000005000, received notification, PrefixStatus, 316 bytes"
        self.assertEqual(lines[5], expected)

    def test_a_failed_delivery_is_no_damage(self) -> None:
        found = self.of(file(FAILED_DELIVERY))[0]
        self.assertEqual((found["body"], found["fields"], found["bytes"]), ("SetMtu.response", {}, ""))

    def test_a_damaged_body_does_not_stop_the_others(self) -> None:
        damaged = packet("00 01 0006 00000002", b"", b"", SET_MTU[:-1])
        found = self.of(file(REQUEST, damaged, NOTIFICATION), DAMAGED)
        self.assertEqual([each.get("problem", {}).get("offset") for each in found], [None, 24, None])
        self.assertEqual(found[2]["body"], "PrefixStatus.notification")

    def test_numbers_without_a_name(self) -> None:
        for head, direction, side in (
            ("00 00 000c 00000000", "request", "sent"),
            ("01 00 000a 00000000", "response", "sent"),
            ("02 01 0001 00000000", "notification", "received"),
            ("03 02 0000 00000000", 3, 2),
        ):
            found = self.of(file(packet(head, b"", b"", SET_MTU)), DAMAGED)[0]
            self.assertEqual((found["packet"]["direction"], found["packet"]["side"]), (direction, side))
            self.assertEqual((found["bytes"], found.get("body")), (SET_MTU.hex(), None))
        shown = run(given=file(packet("03 02 0000 00000000", b"", b"", SET_MTU))).stdout.decode()
        self.assertIn(", side 2 direction 3, unknown method, 36 bytes\n  problem: there is no such body\n", shown)

    def test_packets_that_are_not_whole(self) -> None:
        for changed, expected in (
            (REQUEST[:-1], "cut off after 73 bytes"),
            (REQUEST[:20], "cut off after 20 bytes"),
            (REQUEST[:13], "cut off after 13 bytes"),
            (REQUEST + b"\0\0", "2 bytes left over behind the body"),
            (b"GVN2" + REQUEST[4:], "mark 47 56 4e 32, expected 47 56 4e 31"),
        ):
            with self.subTest(expected):
                found = self.of(file(changed, REQUEST), DAMAGED)
                self.assertEqual(found[0]["packet"]["problem"], expected)
                self.assertEqual(found[1]["fields"], {"mtu": 1400})

    def test_a_tree_of_a_packet_that_is_not_whole(self) -> None:
        lines = run(given=file(REQUEST[:-1])).stdout.decode().splitlines()
        expected = ["  problem at 0x18, mtu: 4 bytes announced, 3 are left", "  0018  00000003 00000004 000005"]
        self.assertEqual(lines[3:], [*expected, "  problem of the packet: cut off after 73 bytes"])

    def test_a_packet_that_was_not_recorded_whole(self) -> None:
        data = bytearray(file(REQUEST[:60]))
        data[36:40] = len(REQUEST).to_bytes(4, "big")
        self.assertEqual(self.of(bytes(data), DAMAGED)[0]["packet"]["problem"], "cut off after 60 bytes of 74")

    def test_a_file_that_is_not_whole(self) -> None:
        whole = file(REQUEST, NOTIFICATION)
        for data, packets, error in (
            (whole[:20], 0, "the file header has 24 bytes, 20 are there"),
            (whole[:120], 1, "at 0x72: a packet begins with 16 bytes, 6 are left"),
            (whole[:-1], 1, f"at 0x82: {len(NOTIFICATION)} bytes announced, {len(NOTIFICATION) - 1} are left"),
            (file(REQUEST, link_type=1), 0, "link type 1, expected 147"),
        ):
            with self.subTest(error):
                result = run("--json", given=data)
                self.assertEqual(result.stderr.decode(), f"gorvanet-decode: {error}\n")
                self.assertEqual((result.returncode, len(result.stdout.splitlines())), (UNREADABLE, packets))

    def test_back_to_a_capture(self) -> None:
        nanoseconds = file(REQUEST, NOTIFICATION, FAILED_DELIVERY, magic=0xA1B23C4D)
        documents = run("--json", given=nanoseconds).stdout
        self.assertEqual(run("--encode", "--output", "pcap", given=documents).stdout, nanoseconds)

    def test_what_cannot_become_a_capture(self) -> None:
        good = json.loads(run("--json", given=file(REQUEST)).stdout)
        for changed, expected in (
            ({key: value for key, value in good.items() if key != "packet"}, "a capture needs the packet of each"),
            (good | {"packet": good["packet"] | {"problem": "cut off"}}, "message 1: packet: it was not whole"),
            (good | {"packet": {"direction": "request"}}, "message 1: packet: side is missing"),
            (good | {"packet": good["packet"] | {"side": "left"}}, "message 1: packet: "),
            (good | {"packet": good["packet"] | {"method": 1 << 16}}, "message 1: packet: "),
            (good | {"packet": good["packet"] | {"method": 6.5}}, "message 1: packet: "),
            (good | {"packet": good["packet"] | {"request": float("inf")}}, "message 1: packet: "),
            (good | {"packet": good["packet"] | {"time": "-1.5"}}, "message 1: packet: time '-1.5' is no number"),
            (good | {"packet": good["packet"] | {"time": "1.9999999999"}}, "message 1: packet: time "),
            (good | {"packet": good["packet"] | {"time": "4294967296"}}, "message 1: packet: "),
            (good | {"packet": good["packet"] | {"time": 1}}, "message 1: packet: "),
            (good | {"packet": good["packet"] | {"user": "x" * 70000}}, "message 1: packet: "),
        ):
            with self.subTest(expected):
                result = run("--encode", "--output", "pcap", given=json.dumps(changed))
                self.assertEqual((result.returncode, result.stdout), (UNREADABLE, b""))
                self.assertTrue(result.stderr.decode().startswith(f"gorvanet-decode: {expected}"), result.stderr)


if __name__ == "__main__":
    unittest.main()
