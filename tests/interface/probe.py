"""The library in another process, 32 bits wide: questions and answers, see probe.cpp."""

from __future__ import annotations

import json
import os
import subprocess
from dataclasses import dataclass
from typing import Any


def _digits(data: bytes) -> str:
    return data.hex() or "."


def _bytes(digits: str) -> bytes:
    return b"" if digits == "." else bytes.fromhex(digits)


@dataclass(frozen=True)
class Answer:
    status: int
    data: bytes
    consumed: int = 0


class Probe:
    def __init__(self) -> None:
        self.process = subprocess.Popen(
            [os.environ["GORVANET_PROBE"]], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
        )

    def close(self) -> int:
        """The exit status."""
        self.process.communicate()
        return self.process.returncode

    def ask(self, *question: object) -> str:
        assert self.process.stdin and self.process.stdout
        print(*question, file=self.process.stdin, flush=True)
        answer = self.process.stdout.readline()
        if not answer:
            raise AssertionError(f"the process ended at: {' '.join(map(str, question))[:200]}")
        return answer.rstrip("\n")

    def document(self, what: str) -> Any:
        return json.loads(self.ask(what))

    def call(self, function: str) -> tuple[str, list[int]]:
        name, *words = self.ask("call", function).split()
        return name, [int(word) for word in words]

    def body(self, function: str, kind: int, data: bytes) -> Answer:
        """Of serializeBody and unserializeBody."""
        operation = "unserializeBody" if "_unserializeBody_" in function else "serializeBody"
        status, digits = self.ask(operation, function, kind, _digits(data)).split()
        return Answer(int(status), _bytes(digits))

    def serialize_lg(self, function: str, record: bytes) -> int:
        return int(self.ask("serialize_lg", function, _digits(record)))

    def serialize(self, function: str, size: int, record: bytes) -> Answer:
        status, digits = self.ask("serialize", function, size, _digits(record)).split()
        return Answer(int(status), _bytes(digits))

    def unserialize(self, function: str, size: int, data: bytes) -> Answer:
        status, consumed, digits = self.ask("unserialize", function, size, _digits(data)).split()
        return Answer(int(status), _bytes(digits), int(consumed))
