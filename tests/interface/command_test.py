"""gorvanet-decode as people and programs run it."""

from __future__ import annotations

import contextlib
import io
import json
import os
import pty
import re
import shutil
import subprocess
import tempfile
import unittest
from dataclasses import dataclass
from pathlib import Path
from typing import Any, cast
from unittest import mock

from support import DECODER, DESCRIPTION, INTERFACE, ROOT, Values, vectors

from gorvanet_decode import command, wire

VECTORS = {name: vector.data for name, vector in vectors().items()}

SAMPLE = ROOT / "tools" / "wireshark" / "sample.pcap"

SOUND, DAMAGED, UNREADABLE = 0, 1, 2


@dataclass(frozen=True)
class Result:
    returncode: int
    stdout: bytes
    stderr: bytes


def run(*arguments: str, given: bytes | str = b"", description: Path = DESCRIPTION) -> Result:
    """The command within this process."""
    data = given.encode() if isinstance(given, str) else given
    streams = [io.TextIOWrapper(io.BytesIO(each), encoding="utf-8") for each in (data, b"", b"")]
    names = ("sys.stdin", "sys.stdout", "sys.stderr")
    with contextlib.ExitStack() as stack:
        for name, stream in zip(names, streams):
            stack.enter_context(mock.patch(name, stream))
        status = command.main(list(arguments), description)
    for stream in streams:
        stream.flush()
    output, errors = (cast(io.BytesIO, stream.buffer).getvalue() for stream in streams[1:])
    return Result(status, output, errors)


class Command(unittest.TestCase):
    def expect(self, result: Result, status: int, output: str, error: str = "") -> None:
        self.assertEqual(result.stderr.decode(), error)
        self.assertEqual(result.stdout.decode(), output)
        self.assertEqual(result.returncode, status)

    def documents(self, result: Result, status: int = SOUND) -> list[dict[str, Any]]:
        self.assertEqual((result.returncode, result.stderr.decode()), (status, ""))
        return [json.loads(line) for line in result.stdout.splitlines()]


class Tree(Command):
    def test_a_body(self) -> None:
        expected = """\
RegisterPrefixStatus request, 72 bytes
  0000  magic    0x20150227
  000c  version  0
  0018  first    10
  0024  pointer  0x0804a010
  003c  last     4294967295
"""
        self.expect(run(given=VECTORS["RegisterPrefixStatus.request"].hex()), SOUND, expected)

    def test_records_and_lists(self) -> None:
        expected = """\
SetIPv6PrefixAndAddress request, 272 bytes
  0000  magic            0x24331320
  000c  version          0
  0018  list             ipv6_prefix_addr_conf_list
  0018    field3         1
  0024    confs[0]       ipv6_prefix_addr_conf
  0024      config       ipv6_prefix_config
  0024        field3     "lan"
"""
        result = run(given=VECTORS["SetIPv6PrefixAndAddress.request"])
        self.assertEqual(result.stdout.decode().splitlines()[:8], expected.splitlines())

    def test_damage(self) -> None:
        expected = """\
SetDhcp request, 52 bytes
  0000  magic    0x39132011
  000c  version  0
  0018  ifName   "br0"
  problem at 0x28, dhcp: tag 5 (length 4), expected 4
  0028  00000005 00000004 00000001
"""
        data = VECTORS["SetDhcp.request"]
        damaged = data[:43] + b"\5" + data[44:]
        self.expect(run("--body", "SetDhcp.request", given=damaged), DAMAGED, expected)

    def test_much_that_is_left(self) -> None:
        data = VECTORS["SetMtu.request"] + bytes(100)
        lines = run("--body", "SetMtu.request", given=data).stdout.decode().splitlines()
        self.assertEqual(lines[4], "  problem at 0x24, the end: 100 bytes left over behind the last item")
        self.assertEqual(lines[5:-1], [f"  {at:04x}  {' '.join(['00000000'] * 4)}" for at in range(0x24, 0x64, 16)])
        self.assertEqual(lines[-1], "  and 36 bytes more")

    def test_an_oddity(self) -> None:
        data = VECTORS["SetMtu.request"]
        longer = data[:28] + b"\0\0\0\x08" + data[32:] + bytes(4)
        result = run("--body", "SetMtu.request", given=longer)
        self.assertIn("  0018  mtu      1400  (length 8, where the encoder writes 4)\n", result.stdout.decode())
        self.assertEqual(result.returncode, SOUND)

    def test_what_a_terminal_could_take_for_a_command_is_escaped(self) -> None:
        document = {"body": "SetOsIfc.request", "fields": {"ifName": "\x1b[2J\u202eé"}}
        encoded = run("--encode", given=json.dumps(document)).stdout
        shown = run("--body", "SetOsIfc.request", given=encoded).stdout
        self.assertIn(rb'"\u001b[2J\u202e\u00e9"', shown)

    def test_colours(self) -> None:
        given = VECTORS["SetDhcp.request"].hex()
        self.assertNotIn("\x1b", run(given=given).stdout.decode())
        coloured = run("--colour", given=given).stdout.decode()
        self.assertIn("\x1b[36mifName \x1b[0m", coloured)


class Script(Command):
    """The script itself, in a process of its own."""

    def test_in_a_pipe(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            digits = VECTORS["SetDhcp.request"].hex().encode()
            result = subprocess.run([DECODER], input=digits, capture_output=True, timeout=60, cwd=folder)
        self.assertEqual(result.stdout, run(given=digits).stdout)
        self.assertEqual((result.returncode, result.stderr), (SOUND, b""))

    def test_status(self) -> None:
        for given, expected in ((b"00", DAMAGED), (b"0", UNREADABLE)):
            arguments = [str(DECODER), "--body", "SetMtu.request", "--input", "hex"]
            result = subprocess.run(arguments, input=given, capture_output=True, timeout=60)
            self.assertEqual(result.returncode, expected)
        wrong = subprocess.run([DECODER, "--wrong"], capture_output=True, timeout=60)
        self.assertEqual(wrong.returncode, UNREADABLE)

    def test_a_reader_that_goes_away(self) -> None:
        text = (VECTORS["SetDhcp.request"].hex() + "\n\n") * 2000
        shell = f"'{DECODER}' | head -n 1; echo ${{PIPESTATUS[0]}}"
        result = subprocess.run(["bash", "-c", shell], input=text.encode(), capture_output=True, timeout=60)
        self.assertEqual(result.stdout.decode(), "SetDhcp request, 52 bytes\n0\n")
        self.assertEqual(result.stderr, b"")

    def test_an_output_that_takes_nothing(self) -> None:
        document = json.dumps({"body": "SetMtu.request", "fields": {"mtu": 1400}})
        for command, expected in (
            ("--encode >/dev/full", "standard output: No space left on device"),
            ("--encode --output binary >/dev/full", "standard output: No space left on device"),
            ("--body SetMtu.request --input binary >/dev/full", "standard output: No space left on device"),
            ("--encode >&-", "standard output is closed"),
            ("--encode <&-", "standard input is closed"),
        ):
            with self.subTest(command):
                shell = ["bash", "-c", f"'{DECODER}' {command}"]
                result = subprocess.run(shell, input=document.encode(), capture_output=True, timeout=60)
                self.assertEqual(result.stderr.decode(), f"gorvanet-decode: {expected}\n")
                self.assertEqual(result.returncode, UNREADABLE)

    def test_an_output_that_cannot_say_it(self) -> None:
        text = json.dumps({"body": "SetOsIfc.request", "fields": {"ifName": "\u20ac"}})
        given = run("--encode", "--output", "binary", given=text).stdout
        arguments = [str(DECODER), "--input", "binary", "--body", "SetOsIfc.request"]
        environment = os.environ | {"PYTHONIOENCODING": "ascii"}
        result = subprocess.run(arguments, input=given, capture_output=True, timeout=60, env=environment)
        self.assertEqual((result.returncode, result.stderr), (SOUND, b""))
        self.assertIn(b'ifName   "\\u20ac"', result.stdout)

    def test_on_a_terminal(self) -> None:
        self.assertIn("\x1b", self.on_a_terminal({}))
        self.assertNotIn("\x1b", self.on_a_terminal({"NO_COLOR": "1"}))
        self.assertNotIn("\x1b", self.on_a_terminal({}, "--plain"))

    def test_where_it_is_installed(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            share = Path(folder) / "share" / "gorvanet"
            shutil.copytree(DECODER.parent / "gorvanet_decode", share / "gorvanet_decode")
            shutil.copy(DESCRIPTION, share)
            (Path(folder) / "bin").mkdir()
            installed = shutil.copy(DECODER, Path(folder) / "bin")
            digits = VECTORS["SetDhcp.request"].hex().encode()
            result = subprocess.run([installed], input=digits, capture_output=True, timeout=60)
        self.assertEqual((result.stdout, result.stderr), (run(given=digits).stdout, b""))

    @staticmethod
    def on_a_terminal(environment: dict[str, str], *arguments: str) -> str:
        plain = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
        terminal, output = pty.openpty()
        given = VECTORS["SetDhcp.request"].hex().encode()
        subprocess.run([DECODER, *arguments], input=given, stdout=output, env=plain | environment, timeout=60)
        os.close(output)
        shown = os.read(terminal, 1 << 16).decode()
        os.close(terminal)
        return shown


class Manual(Command):
    def test_its_examples_are_true(self) -> None:
        manual = (ROOT / "tools" / "README.md").read_text(encoding="ascii")
        examples = re.findall(r"(?:^    .*\n)+", manual, re.MULTILINE)
        blocks = [re.sub(r"^    ", "", example, flags=re.MULTILINE) for example in examples]
        data = VECTORS["SetDhcp.request"]
        shown = run(given=data).stdout.decode()
        self.assertEqual(blocks[0], "$ tools/decode/gorvanet-decode body.hex\n" + shown)
        damaged = run("--body", "SetDhcp.request", given=data[:43] + b"\5" + data[44:]).stdout.decode()
        self.assertTrue(damaged.endswith(blocks[1]))
        question, digits = blocks[2].splitlines()
        document = re.findall(r"'(.*)'", question)[0]
        self.expect(run("--encode", given=document), SOUND, digits + "\n")


class Input(Command):
    def test_hexadecimal_digits_with_blanks_and_comments(self) -> None:
        text = "# a body\n00000000 00000004 39132011  # magic\n00000001\t00000004 00000000\n"
        text += "00000003 00000008 65746830 00000000\r\n00000004 00000004 0000 0001"
        self.assertEqual(self.documents(run("--json", given=text))[0]["fields"], {"ifName": "eth0", "dhcp": 1})

    def test_a_blank_line_ends_a_body(self) -> None:
        text = VECTORS["SetDhcp.request"].hex() + "\n\n" + VECTORS["Configure.request"].hex()
        found = self.documents(run("--json", given=text))
        self.assertEqual([each["body"] for each in found], ["SetDhcp.request", "Configure.request"])

    def test_a_comment_of_many_signs(self) -> None:
        given = "#" * 100 + "\n" + VECTORS["SetDhcp.request"].hex()
        self.assertEqual(self.documents(run("--json", given=given))[0]["body"], "SetDhcp.request")
        self.assertEqual(run("--body", "SetDhcp.request", given="#" * 100 + "\nx").returncode, DAMAGED)

    def test_a_file(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "body"
            file.write_bytes(VECTORS["Configure.request"])
            self.assertEqual(self.documents(run("--json", str(file)))[0]["body"], "Configure.request")
            missing = str(Path(folder) / "missing")
            error = f"gorvanet-decode: {missing}: No such file or directory\n"
            self.expect(run(missing), UNREADABLE, "", error)

    def test_the_kind_of_input_can_be_said(self) -> None:
        digits = VECTORS["Configure.request"].hex()
        self.assertEqual(run("--input", "hex", given=digits).returncode, SOUND)
        self.assertEqual(run("--input", "binary", "--body", "Configure", given=digits).returncode, DAMAGED)
        error = "gorvanet-decode: not a capture: the first four bytes are 30 30 30 30\n"
        self.expect(run("--input", "pcap", given=digits), UNREADABLE, "", error)
        error = "gorvanet-decode: not pairs of hexadecimal digits: 123\n"
        self.expect(run("--input", "hex", given="123"), UNREADABLE, "", error)

    def test_the_other_format_of_captures(self) -> None:
        given = bytes.fromhex("0a0d0d0a0000001c1a2b3c4d00010000ffffffffffffffff0000001c")
        error = "gorvanet-decode: a pcapng file: editcap -F pcap makes a capture of it\n"
        self.expect(run(given=given), UNREADABLE, "", error)
        self.expect(run("--input", "pcap", given=given), UNREADABLE, "", error)
        self.assertEqual(run("--input", "binary", "--body", "Configure", given=given).returncode, DAMAGED)

    def test_a_capture_is_told_nothing(self) -> None:
        given = SAMPLE.read_bytes()
        error = "gorvanet-decode: a capture says itself what it holds: without --body and --record\n"
        for option, name in (("--body", "SetMtu.request"), ("--record", "state_info"), ("--body", "Nothing")):
            self.expect(run(option, name, given=given), UNREADABLE, "", error)
            self.expect(run(option, name, "--input", "pcap", given=given), UNREADABLE, "", error)
        self.assertEqual(run("--record", "state_info", "--input", "binary", given=given).returncode, DAMAGED)

    def test_options_that_would_be_without_effect(self) -> None:
        given = json.dumps({"body": "SetMtu.request", "fields": {"mtu": 1400}})
        error = "gorvanet-decode: --input, --body, --record and --json do not go with --encode\n"
        for options in (["--input", "hex"], ["--body", "SetMtu.request"], ["--record", "state_info"], ["--json"]):
            self.expect(run("--encode", *options, given=given), UNREADABLE, "", error)
        error = "gorvanet-decode: --output goes with --encode\n"
        self.expect(run("--output", "hex", given=VECTORS["SetDhcp.request"]), UNREADABLE, "", error)

    def test_bytes_that_may_be_two_bodies(self) -> None:
        error = "gorvanet-decode: these bytes may be SetMtu.request or SetMtu.response: say which with --body\n"
        self.expect(run(given=VECTORS["SetMtu.request"]), UNREADABLE, "", error)
        chosen = self.documents(run("--json", "--body", "SetMtu.response", given=VECTORS["SetMtu.request"]))
        self.assertEqual(chosen[0], {"body": "SetMtu.response", "fields": {"result": 1400}})

    def test_bytes_that_begin_like_no_body(self) -> None:
        error = "gorvanet-decode: no body begins like these bytes: say with --body which they are to be\n"
        for given in (b"", b"\xff", "0x00 0x00", "ff" * 40):
            self.expect(run(given=given), UNREADABLE, "", error)

    def test_a_method_is_enough_where_its_bodies_differ(self) -> None:
        found = self.documents(run("--json", "--body", "GetIPv4Props", given=VECTORS["GetIPv4Props.request"]))
        self.assertEqual(found[0]["body"], "GetIPv4Props.request")

    def test_names_that_do_not_exist(self) -> None:
        for option in ("--body", "--record"):
            result = run(option, "Nothing", given=VECTORS["SetMtu.request"])
            self.assertEqual(result.returncode, UNREADABLE)
            self.assertRegex(result.stderr.decode(), "^gorvanet-decode: no (body|record) Nothing; there are ")

    def test_nothing(self) -> None:
        self.assertEqual(run("--body", "SetMtu.request", "--input", "binary").returncode, DAMAGED)


class Description(Command):
    def test_one_that_cannot_be_used(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "description"
            for content, expected in ((None, "No such file"), ("{", "Expecting"), ("{}", "'records'"), ("[]", "list")):
                if content:
                    file.write_text(content, encoding="ascii")
                result = run(given="00", description=file)
                self.assertEqual((result.returncode, result.stdout), (UNREADABLE, b""))
                self.assertTrue(result.stderr.decode().startswith(f"gorvanet-decode: {file}: "), result.stderr)
                self.assertIn(expected, result.stderr.decode())


class RoundTrip(Command):
    def test_every_vector(self) -> None:
        for name, data in VECTORS.items():
            with self.subTest(name):
                document = run("--json", "--body", name, given=data).stdout
                self.assertNotIn(b'"bytes"', document)
                self.expect(run("--encode", given=document), SOUND, data.hex() + "\n")
                self.assertEqual(run("--encode", "--output", "binary", given=document).stdout, data)

    def test_every_body(self) -> None:
        for name, body in INTERFACE.bodies.items():
            with self.subTest(name):
                data = wire.encode_body(body, INTERFACE.prologue, Values(3).of(body.fields))
                document = run("--json", "--body", name, given=data).stdout
                self.assertEqual(run("--encode", "--output", "binary", given=document).stdout, data)

    def test_every_record(self) -> None:
        for name, fields in INTERFACE.records.items():
            with self.subTest(name):
                data = wire.encode_fields(fields, Values(4).of(fields))
                document = run("--json", "--record", name, given=data).stdout
                self.assertEqual(json.loads(document)["record"], name)
                self.assertEqual(run("--encode", "--output", "binary", given=document).stdout, data)

    def test_what_is_damaged_or_odd_comes_back_too(self) -> None:
        data = VECTORS["Configure.request"]
        for changed in (data[:-1], data + b"\1", data[:20] + b"\1\0\0\1" + data[24:], b"", b"\xff"):
            result = run("--json", "--body", "Configure.request", "--input", "binary", given=changed)
            self.assertIn("bytes", json.loads(result.stdout))
            self.assertEqual(run("--encode", "--output", "binary", given=result.stdout).stdout, changed)

    def test_several(self) -> None:
        text = VECTORS["SetDhcp.request"].hex() + "\n\n" + VECTORS["Configure.request"].hex() + "\n"
        self.expect(run("--encode", given=run("--json", given=text).stdout), SOUND, text)

    def test_very_many(self) -> None:
        given = '{"body": "SetMtu.request", "fields": {"mtu": 1400}}\n' * 50000
        self.assertEqual(len(run("--encode", "--output", "binary", given=given).stdout), 36 * 50000)


class Json(Command):
    def test_damage(self) -> None:
        found = self.documents(run("--json", "--body", "SetDhcp", given=VECTORS["SetDhcp.request"][:-1]), DAMAGED)
        problem = {"offset": 40, "field": "dhcp", "text": "4 bytes announced, 3 are left"}
        self.assertEqual(found[0]["problem"], problem)
        self.assertEqual(found[0]["fields"], {"ifName": "br0"})

    def test_what_cannot_be_encoded(self) -> None:
        for given, expected in (
            ("{", "not JSON: "),
            ("[]", "message 1: a message is an object"),
            ("[" * 100000, "not JSON: "),
            ("{}", "message 1: body: None is none of SetOsIfc.request, "),
            ('{"body": "SetMtu.request"}', "message 1: mtu: missing"),
            ('{"bytes": "0"}', "message 1: bytes: "),
            ('{"body": "SetMtu.request", "fields": {"mtu": "0xg"}}', "message 1: mtu: '0xg' is no number "),
            ('{"body": "SetOsIfc.request", "fields": {"ifName": "\\ud800"}}', "message 1: ifName: "),
            ('{"record": "ipv6_prefixes", "fields": {"field3": "0x1", "prefixes": []}}', "message 1: prefixes: 0 el"),
            ('{"bytes": "", "packet": "none"}', "message 1: packet: 'none' is no object"),
            ('{"record": "nothing"}', "message 1: record: 'nothing' is none of state_info, "),
            ('{"body": "SetDhcp.response"} {"body": "SetMtu.request"}', "message 2: mtu: missing"),
        ):
            with self.subTest(given):
                result = run("--encode", given=given)
                self.assertEqual((result.returncode, result.stdout), (UNREADABLE, b""))
                self.assertTrue(result.stderr.decode().startswith(f"gorvanet-decode: {expected}"), result.stderr)


if __name__ == "__main__":
    unittest.main()
