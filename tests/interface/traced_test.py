"""From a process to the eye: what the tracer captures of all methods, gorvanet-decode reads, and writes again."""

from __future__ import annotations

import json
import os
import subprocess
import tempfile
import unittest
from collections import Counter
from pathlib import Path
from typing import Any

from command_test import SOUND, run
from support import INTERFACE

from gorvanet_decode import capture


class Traced(unittest.TestCase):
    """The traced process writes down what its bus carries: side, method, forth or back, the body."""

    captured: bytes
    messages: list[dict[str, Any]]
    witnessed: list[list[str]]

    @classmethod
    def setUpClass(cls) -> None:
        with tempfile.TemporaryDirectory() as folder:
            file, witness = Path(folder) / "pcap", Path(folder) / "seen"
            command = [os.environ["GORVANET_TRACE"], "-q", "-o", str(file)]
            command += [os.environ["GORVANET_WITNESS"], str(witness)]
            subprocess.run(command, check=True, capture_output=True, timeout=60)
            cls.captured = file.read_bytes()
            cls.witnessed = [line.split() for line in witness.read_text(encoding="ascii").splitlines()]
        result = run("--json", given=cls.captured)
        assert result.returncode == SOUND, result.stderr
        cls.messages = [json.loads(line) for line in result.stdout.splitlines()]

    def test_every_body_is_there_and_sound(self) -> None:
        self.assertEqual({each["body"] for each in self.messages}, set(INTERFACE.bodies))
        self.assertEqual([each for each in self.messages if "problem" in each or "notes" in each], [])

    def test_it_is_what_the_bus_carried(self) -> None:
        found: Counter[tuple[str, ...]] = Counter()
        for each, packet in zip(self.messages, capture.read(self.captured), strict=True):
            method, _, direction = each["body"].partition(".")
            way = "back" if direction == "response" else "forth"
            if packet.body:
                found[each["packet"]["side"], method, way, packet.body.hex()] += 1
        self.assertEqual(found, Counter(tuple(line) for line in self.witnessed if len(line) == 4))

    def test_it_comes_back_as_the_same_packets(self) -> None:
        documents = "\n".join(map(json.dumps, self.messages))
        written = run("--encode", "--output", "pcap", given=documents)
        self.assertEqual(written.stderr, b"")
        self.assertEqual(list(capture.read(written.stdout)), list(capture.read(self.captured)))


if __name__ == "__main__":
    unittest.main()
