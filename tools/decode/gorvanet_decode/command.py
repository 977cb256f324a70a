"""The command gorvanet-decode."""

from __future__ import annotations

import argparse
import io
import json
import os
import re
import sys
from collections.abc import Iterable, Iterator
from pathlib import Path
from typing import Any

from . import capture, message, tree
from .capture import BadCapture
from .description import Body, Interface, load
from .message import Ambiguous, Message, Unknown
from .wire import CannotEncode

SOUND, DAMAGED, UNREADABLE = 0, 1, 2

DESCRIPTION = """\
Shows messages of the interface, and writes them.

Reads bytes, their hexadecimal digits (blanks are ignored, # begins a comment, a blank line ends a body) or a capture,
and tells them apart itself. Shows what is in them, up to the first damage and where that is. With --encode it goes the
other way: what --json printed becomes bytes again."""

EPILOG = """\
exit status: 0 all is sound; 1 something is damaged; 2 something cannot be read at all, or the command is wrong."""


class Unreadable(Exception):
    """Ends the command with a line."""


def main(arguments: list[str], description: Path) -> int:
    try:
        options = _parser().parse_args(arguments)
        _check(options)
        interface = _load(description)
        if not sys.stdout:
            raise Unreadable("standard output is closed")
        if isinstance(sys.stdout, io.TextIOWrapper):
            sys.stdout.reconfigure(errors="backslashreplace")
        status = _encode(interface, options) if options.encode else _decode(interface, options)
        sys.stdout.flush()
        return status
    except (Unreadable, BadCapture) as error:
        print(f"gorvanet-decode: {error}", file=sys.stderr)
        return UNREADABLE
    except OSError as error:
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())  # nothing more to flush
        if isinstance(error, BrokenPipeError):
            return SOUND
        print(f"gorvanet-decode: standard output: {error.strerror}", file=sys.stderr)
        return UNREADABLE


def _parser() -> argparse.ArgumentParser:
    parser = argparse.ArgumentParser(
        prog="gorvanet-decode",
        description=DESCRIPTION,
        epilog=EPILOG,
        formatter_class=argparse.RawDescriptionHelpFormatter,
        allow_abbrev=False,
    )
    parser.add_argument("file", nargs="?", default="-", help="what to read; standard input if missing or -")
    parser.add_argument("--input", choices=("auto", "hex", "binary", "pcap"), default="auto", help="what the bytes are")
    kind = parser.add_mutually_exclusive_group()
    kind.add_argument("--body", metavar="METHOD[.DIRECTION]", help="what they are, where their magic does not tell")
    kind.add_argument("--record", metavar="NAME", help="they are a record without a body around it")
    parser.add_argument("--json", action="store_true", help="a JSON object for each message, on a line of its own")
    parser.add_argument("--encode", action="store_true", help="read such objects and write their bytes")
    parser.add_argument("--output", choices=("hex", "binary", "pcap"), help="how --encode writes them; hex if not said")
    colours = parser.add_mutually_exclusive_group()
    colours.add_argument("--colour", "--color", action="store_true", default=None, help="colours, even in a pipe")
    colours.add_argument("--plain", action="store_false", dest="colour", help="no colours, even on a terminal")
    return parser


def _check(options: argparse.Namespace) -> None:
    """Refuses what would be without effect."""
    decodes = options.input != "auto" or options.body or options.record or options.json
    if options.encode and decodes:
        raise Unreadable("--input, --body, --record and --json do not go with --encode")
    if options.output and not options.encode:
        raise Unreadable("--output goes with --encode")


def _load(description: Path) -> Interface:
    try:
        return load(description)
    except (OSError, ValueError, KeyError, TypeError) as error:
        raise Unreadable(f"{description}: {error}") from None


def _read(file: str) -> bytes:
    if file == "-" and not sys.stdin:
        raise Unreadable("standard input is closed")
    try:
        return sys.stdin.buffer.read() if file == "-" else Path(file).read_bytes()
    except OSError as error:
        raise Unreadable(f"{file}: {error.strerror}") from None


# ---- Decoding --------------------------------------------------------------------------------------------------------


def _decode(interface: Interface, options: argparse.Namespace) -> int:
    paint = tree.Painter(_wants_colours() if options.colour is None else options.colour)
    status = SOUND
    for number, each in enumerate(_messages(interface, options)):
        if options.json:
            print(json.dumps(message.to_document(interface, each)))
        else:
            print(*[""] * (number > 0), *tree.lines(each, paint), sep="\n")
        status = status if each.sound else DAMAGED
    return status


def _wants_colours() -> bool:
    return sys.stdout.isatty() and not os.environ.get("NO_COLOR")


def _messages(interface: Interface, options: argparse.Namespace) -> Iterator[Message]:
    data = _read(options.file)
    kind = _kind(data) if options.input == "auto" else options.input
    if kind == "pcap":
        if capture.is_pcapng(data):
            raise Unreadable("a pcapng file: editcap -F pcap makes a capture of it")
        if not capture.is_capture(data):
            raise Unreadable("not a capture: the first four bytes are " + data[:4].hex(" "))
        if options.body or options.record:
            raise Unreadable("a capture says itself what it holds: without --body and --record")
        yield from (message.of_packet(interface, packet) for packet in capture.read(data))
    else:
        for body in _digits(data) if kind == "hex" else [data]:
            yield _message(interface, options, body)


def _kind(data: bytes) -> str:
    if capture.is_capture(data) or capture.is_pcapng(data):
        return "pcap"
    return "hex" if re.fullmatch(rb"(?:[\s0-9a-fA-F]|#.*(?:\n|\Z))+", data) else "binary"


def _digits(data: bytes) -> Iterable[bytes]:
    text = re.sub(r"#.*", "#", data.decode("ascii", "replace"))
    for paragraph in re.split(r"\n[ \t\r]*\n", text):
        digits = re.sub(r"[\s#]", "", paragraph)
        if digits:
            try:
                yield bytes.fromhex(digits)
            except ValueError:
                raise Unreadable(f"not pairs of hexadecimal digits: {digits[:40]}") from None


def _message(interface: Interface, options: argparse.Namespace, data: bytes) -> Message:
    if options.record:
        if options.record not in interface.records:
            raise Unreadable(f"no record {options.record}; there are {', '.join(interface.records)}")
        return message.of_record(interface, options.record, data)
    try:
        return message.recognise(interface, _candidates(interface, options.body), data)
    except Unknown:
        raise Unreadable("no body begins like these bytes: say with --body which they are to be") from None
    except Ambiguous as names:
        raise Unreadable(f"these bytes may be {names}: say which with --body") from None


def _candidates(interface: Interface, wish: str | None) -> list[Body]:
    bodies = interface.bodies.values()
    found = [body for body in bodies if not wish or wish in (body.name, body.method)]
    if not found:
        raise Unreadable(f"no body {wish}; there are {', '.join(interface.bodies)}")
    return found


# ---- Encoding --------------------------------------------------------------------------------------------------------


def _encode(interface: Interface, options: argparse.Namespace) -> int:
    encoded = []
    for number, document in enumerate(_documents(_read(options.file)), 1):
        try:
            encoded.append(message.from_document(interface, document))
        except CannotEncode as error:
            raise Unreadable(f"message {number}: {error}") from None
    if options.output in ("binary", "pcap"):
        sys.stdout.buffer.write(_joined(encoded, options.output))
    else:
        print("\n\n".join(data.hex() for data, _ in encoded))
    return SOUND


def _joined(encoded: list[tuple[bytes, capture.Packet | None]], output: str) -> bytes:
    if output == "binary":
        return b"".join(data for data, _ in encoded)
    packets = [packet for _, packet in encoded if packet]
    if len(packets) < len(encoded):
        raise Unreadable("a capture needs the packet of each message")
    return capture.write(packets)


def _documents(data: bytes) -> Iterator[Any]:
    """Objects behind one another."""
    decoder = json.JSONDecoder()
    try:
        text = data.decode("utf-8")
        at = _behind_blanks(text, 0)
        while at < len(text):
            document, at = decoder.raw_decode(text, at)
            at = _behind_blanks(text, at)
            yield document
    except (ValueError, RecursionError) as error:
        raise Unreadable(f"not JSON: {error}") from None


def _behind_blanks(text: str, at: int) -> int:
    while at < len(text) and text[at].isspace():
        at += 1
    return at
