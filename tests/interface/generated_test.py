"""What is made from the description: up to date, and true where something else tells."""

from __future__ import annotations

import re
import subprocess
import unittest
from typing import Any

from support import DOCUMENT, INTERFACE, ROOT, Largest, Zeroes

from gorvanet_decode import wire
from reference import sizes


class Generated(unittest.TestCase):
    def test_everything_is_up_to_date(self) -> None:
        result = subprocess.run([ROOT / "scripts" / "generate", "--check"], capture_output=True, text=True, timeout=60)
        self.assertEqual((result.stdout, result.stderr, result.returncode), ("", "", 0))


class Description(unittest.TestCase):
    """interface/gorvanet.json has the members that interface/README.md documents, and no others."""

    KINDS = {
        **dict.fromkeys(("u8", "s8", "u16", "u32", "pointer"), {"name", "kind", "tag"}),
        "text": {"name", "kind", "tag", "capacity"},
        "record": {"name", "kind", "record"},
        "list": {"name", "kind", "tag", "capacity", "count", "record"},
    }
    METHOD = {"name", "interface", "index", "magic", "magic_name", "accept_magic", "version"}

    def expect_fields(self, fields: list[dict[str, Any]], where: str) -> None:
        for field in fields:
            self.assertEqual(set(field), self.KINDS[field["kind"]], where)
        tags = [field["tag"] for field in fields if "tag" in field]
        self.assertEqual(tags, sorted(set(tags)), where)
        names = [field[name] for field in fields for name in ("name", "count") if name in field]
        self.assertEqual(len(names), len(set(names)), where)

    def test_members(self) -> None:
        top = {"interface", "magic", "free_magic", "blocks", "prologue", "functions", "records", "methods"}
        self.assertEqual(set(DOCUMENT), top)
        for record in DOCUMENT["records"]:
            self.assertEqual(set(record), {"name", "fields", "functions"})
            self.expect_fields(record["fields"], record["name"])
        for method in DOCUMENT["methods"]:
            self.assertEqual(set(method), self.METHOD | {"request", "response", "functions"})
            for direction in ("request", "response"):
                self.expect_fields(method[direction] or [], f"{method['name']} {direction}")

    def test_members_are_documented(self) -> None:
        manual = (ROOT / "interface" / "README.md").read_text(encoding="ascii")
        documented = set(re.findall(r"`(\w+)`", "".join(re.findall(r"^\|[^|]*\|", manual, re.MULTILINE))))
        members = {*DOCUMENT, *self.METHOD, "request", "response", "functions", *self.KINDS}
        self.assertEqual(documented, members.union(*self.KINDS.values()))


class Sizes(unittest.TestCase):
    def test_they_are_what_the_codec_makes(self) -> None:
        for name, fields in [*INTERFACE.records.items(), *((b.name, b.fields) for b in INTERFACE.bodies.values())]:
            encoded = tuple(len(wire.encode_fields(fields, choice.of(fields))) for choice in (Zeroes(), Largest()))
            self.assertEqual(sizes(fields), encoded, name)

    def test_they_are_what_the_header_says_of_records(self) -> None:
        header = (ROOT / "include" / "gorvanet.h").read_text(encoding="ascii")
        comments = re.findall(r"/\*((?:[^*]|\*(?!/))*Encodes to [^*]*(?:\*(?!/)[^*]*)*)\*/\s*struct (\w+) \{", header)
        found = {name: self.numbers(comment) for comment, name in comments}
        self.assertEqual(found, {name: sizes(fields) for name, fields in INTERFACE.records.items()})

    @staticmethod
    def numbers(comment: str) -> tuple[int, int]:
        words = re.sub(r"[\s*]+", " ", comment)
        least, most = re.findall(r"Encodes to (\d+) bytes(?: at least and (\d+) at most)?", words)[0]
        return int(least), int(most or least)


class Reference(unittest.TestCase):
    """docs/wire.md as its readers find it."""

    text = (ROOT / "docs" / "wire.md").read_text(encoding="ascii")

    def section(self, title: str) -> str:
        found = re.search(rf"^### {re.escape(title)}\n(.*?)(?=^##|\Z)", self.text, re.MULTILINE | re.DOTALL)
        assert found, title
        return found[1]

    def test_each_body_has_its_items_and_the_whole_example(self) -> None:
        for body in INTERFACE.bodies.values():
            section = self.section(f"{body.method} {body.direction}")
            for field in body.fields:
                self.assertIn(f"| `{field.count or field.name}` |", section)
            rows = re.findall(r"^    (?:[0-9a-f]{4}|    )  ((?: *(?:[0-9a-f]{8})+(?![^ \n]))+)", section, re.MULTILINE)
            data = bytes.fromhex("".join(rows))
            decoded = wire.decode_body(body, INTERFACE.prologue, data)
            self.assertIsNone(decoded.problem, f"{body.name}: {data.hex(' ', 4)}")
            offsets = re.findall(r"^    ([0-9a-f]{4})  ", section, re.MULTILINE)
            items = [item.offset for item in decoded.items if item.kind != "record"]
            self.assertEqual([int(offset, 16) for offset in offsets], items, body.name)

    def test_each_record_has_its_fields(self) -> None:
        for name, fields in INTERFACE.records.items():
            for field in fields:
                self.assertIn(f"| `{field.name}` |", self.section(name))

    def test_links_lead_somewhere(self) -> None:
        titles = {title.lower().replace(" ", "-") for title in re.findall(r"^#+ (.*)", self.text, re.MULTILINE)}
        for target in re.findall(r"\]\(#([^)]*)\)", self.text):
            self.assertIn(target, titles)


if __name__ == "__main__":
    unittest.main()
