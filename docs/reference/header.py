#!/usr/bin/env python3
"""Makes of the public header one that Doxygen reads: every declaration with all that the header says about it.

    docs/reference/header.py HEADER DESCRIPTION OUTPUT

The header says once what a family of functions does: the five of a record, those of a method. Here each function gets
it. What the members of a record are on the wire comes from the description of the interface.
"""

from __future__ import annotations

import json
import re
import sys
from dataclasses import dataclass, field
from pathlib import Path

Family = dict[str, list[str]]

BODY_CALLBACKS = ("freeBody", "serializeBody", "unserializeBody", "logBody")
RECORD_FUNCTIONS = ("serialize_lg", "unserialize", "serialize", "copy", "clean")


@dataclass
class Header:
    """What has been read of the header so far."""

    output: list[str] = field(default_factory=list)
    records: Family = field(default_factory=dict)
    methods: Family = field(default_factory=dict)
    prototypes: dict[str, str] = field(default_factory=dict)  # of the types of functions, with NAME for the name
    group: str = ""
    comment: list[str] = field(default_factory=list)  # holds for the declarations up to the next blank line


# ---- Text -----------------------------------------------------------------------------------------------------------


def words_of(comment: str) -> list[str]:
    """The lines of a comment, without its stars."""
    inner = comment.strip().removeprefix("/*").removesuffix("*/")
    return [re.sub(r"^ \* ?", "", line).rstrip() for line in ("  " + inner.strip()).split("\n")]


def escaped(line: str) -> str:
    line = re.sub(r"([\\@<>&$#%])", r"\\\1", line).replace('"', "&quot;")
    return re.sub(r"`([^`]*)`", r"<tt>\1</tt>", line)


def paragraphs(lines: list[str]) -> list[str]:
    """As Doxygen wants them: "Result:" and "Log:" become headings."""
    made = []
    for line in lines:
        label = re.match(r"\s*(Result|Log(?: of \w+)?): ?(.*)", line)
        if label:
            made += ["", f"\\par {label[1]}", escaped(label[2])]
        else:
            made.append(escaped(line.strip()))
    return made


def documented(lines: list[str]) -> str:
    return "/**\n" + "\n".join(f" * {line}".rstrip() for line in lines) + "\n */"


# ---- Families -------------------------------------------------------------------------------------------------------


def entries(lines: list[str]) -> Family:
    """"name  text" with more lines of text below it, indented."""
    found: Family = {}
    name = ""
    for line in lines:
        start = re.match(r"(\w+)(?: {2,}(\S.*)| \((?:client|server|called by the middleware)\))$", line)
        wide = re.match(r"<method>_(\w+) \(\w+\)$", line)
        if start or wide:
            name = (start or wide)[1]
            found[name] = [start[2]] if start and start[2] else []
        elif name and (line.startswith("  ") or not line):
            found[name].append(line.strip())
        else:
            name = ""
    return {key: text for key, text in found.items() if any(text)}


def family_of(header: Header, name: str) -> list[str]:
    """What the header says of all functions of this kind."""
    for callback in BODY_CALLBACKS:
        if f"_{callback}_" in name:
            return header.methods[callback]
    for kind in ("sendReq", "modSrv_recvMsg", "recvReq", "sendRes"):
        if name.startswith(f"gorvaNet_{kind}_") and kind in header.methods:
            return header.methods[kind]
    for kind in ("response", "handler"):
        if name.endswith(f"_{kind}"):
            return header.methods.get(kind, [])
    for kind in RECORD_FUNCTIONS:
        if name.endswith(f"_{kind}"):
            return header.records.get(kind, [])
    return []


# ---- Declarations ---------------------------------------------------------------------------------------------------


def name_of(declaration: str) -> str:
    pointer = re.search(r"(\w+)\(", declaration)
    plain = re.search(r"(\w+);$", declaration)
    return (pointer or plain)[1]


def spelled_out(header: Header, declaration: str) -> str:
    """A function that is declared by the type of its kind, as a prototype."""
    typed = re.match(r"(gorvaNet_\w+) (\w+);$", declaration)
    if typed and typed[1] in header.prototypes:
        return header.prototypes[typed[1]].replace("NAME", typed[2])
    return declaration


def put_declaration(header: Header, declaration: str) -> None:
    declaration = declaration.replace("GORVANET_API ", "")
    name = name_of(declaration)
    typedef = re.match(r"typedef (.*?)(\w+)\((.*)\);$", declaration, re.S)
    if typedef:
        header.prototypes[typedef[2]] = f"{typedef[1]}NAME({typedef[3]});"
    text = paragraphs(header.comment)
    family = paragraphs(family_of(header, name))
    if family:
        text += ["", *family]
    header.output += [documented(text or [f"Part of {header.group}."]), spelled_out(header, declaration), ""]


def wire_texts(description: Path) -> dict[tuple[str, str], str]:
    """What the members of the records are on the wire."""
    texts = {}
    for record in json.loads(description.read_text(encoding="utf-8"))["records"]:
        for member in record["fields"]:
            words = {"text": f"a text of at most {member.get('capacity', 0) - 1} characters",
                     "list": f"a list of at most {member.get('capacity', 0)} {member.get('record', '')}",
                     "record": f"a {member.get('record', '')}"}.get(member["kind"], "a number")
            if "tag" in member and member["kind"] != "list":
                words = f"Tag {member['tag']}, {words}"
            texts[record["name"], member["name"]] = words[0].upper() + words[1:] + "."
            if member["kind"] == "list":
                texts[record["name"], member["count"]] = f"Tag {member['tag']}, the count of {member['name']}."
    return texts


def put_structure(header: Header, source: str, wire: dict[tuple[str, str], str]) -> None:
    name = source.split()[1]
    header.output.append(documented(paragraphs(header.comment) or [f"Part of {header.group}."]))
    for line in source.split("\n"):
        member = re.match(r"    (.*?;)(?:\s*/\* (.*) \*/)?$", line)
        if not member:
            header.output.append(line)
            continue
        own = re.search(r"(\w+)(?:\[[^]]*\])?;$", member[1])
        texts = [wire.get((name, own[1] if own else ""), ""), member[2] or ""]
        text = " ".join(escaped(text) for text in texts if text) or "See the description of the structure."
        header.output.append(f"    {member[1]} /**< {text} */")
    header.output.append("")


def put_constant(header: Header, source: str) -> None:
    constant = re.match(r"#define (\w+)\s+(\S+)(?:\s*/\* (.*) \*/)?$", source)
    if not constant:
        return
    method = re.match(r"GORVANET_MAGIC_MSG(?:CMD|NTFY)_", constant[1])
    text = constant[3] or " ".join(header.comment)
    if method:
        text = f"The magic of the bodies of {header.group}."
    header.output += [documented([escaped(text or constant[1])]), f"#define {constant[1]} {constant[2]}", ""]


# ---- Groups ---------------------------------------------------------------------------------------------------------


def open_group(header: Header, title: str, lines: list[str]) -> None:
    if header.group:
        header.output += ["/** @} */", ""]
    header.group = title
    anchor = "gorvanet_" + re.sub(r"\W+", "_", title.lower())
    header.output += [documented([f"\\defgroup {anchor} {title}", *paragraphs(lines), "@{"]), ""]


def put_comment(header: Header, comment: str) -> None:
    lines = words_of(comment)
    section = re.match(r"\s*-{4} (.*?) -{10,}$", lines[0])
    method = re.match(r"\s*(\w+), (?:command|notification) \d+: ", lines[0])
    if section:
        open_group(header, section[1], [])
        header.comment = []
        if section[1] == "Records":
            header.records = entries(lines[1:])
        if section[1] == "Commands":
            header.methods = entries(lines[1:])
    elif method:
        open_group(header, method[1], lines)
        header.comment = []
    else:
        header.comment = lines


TOKEN = re.compile(
    r"(?P<comment>/\*.*?\*/)|(?P<constant>#define [^\n]*)|(?P<structure>struct \w+ \{\n.*?\n\};)"
    r"|(?P<declaration>(?:GORVANET_API|typedef|extern)[^{]*?;)|(?P<blank>\n\n)",
    re.S,
)


def convert(source: str, wire: dict[tuple[str, str], str]) -> str:
    header = Header()
    start = source.index("*/") + 2
    introduction = words_of(source[:start])
    header.output.append(documented(["\\file", "\\brief " + escaped(introduction[0].strip()),
                                     *(escaped(line) for line in introduction[1:])]))
    header.output += ["#include <stdint.h>", ""]
    for token in TOKEN.finditer(source[start:].replace('extern "C" {', "").replace("extern GORVANET_API", "extern")):
        put_token(header, token, wire)
    header.output.append("/** @} */")
    return "\n".join(header.output) + "\n"


def put_token(header: Header, token: re.Match[str], wire: dict[tuple[str, str], str]) -> None:
    text = token[0]
    if token["comment"]:
        put_comment(header, text)
    elif token["constant"] and header.group:
        put_constant(header, text)
    elif token["structure"]:
        put_structure(header, text, wire)
    elif token["declaration"] and header.group:
        put_declaration(header, text)
    elif token["blank"]:
        header.comment = []


def main(arguments: list[str]) -> int:
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    source, description, output = map(Path, arguments)
    output.write_text(convert(source.read_text(encoding="utf-8"), wire_texts(description)), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
