"""The tables of tools/wireshark/gorvanet.lua: records and bodies, each field with its filter name."""

from __future__ import annotations

from gorvanet_decode.capture import DIRECTIONS
from gorvanet_decode.description import Body, Field, Interface

MARKER = "--@interface\n"
GENERATED = "-- Made by scripts/generate from interface/gorvanet.json. Do not edit.\n"


def dissector(interface: Interface, template: str) -> str:
    head, _, tail = template.partition(MARKER)
    return GENERATED + head + _tables(interface) + tail


def filter_name(owner: str, field: Field) -> str:
    """Of a field of a record or of a method; of a list it is its count's."""
    return f"gorvanet.{owner}.{field.count or field.name}".lower()


def _tables(interface: Interface) -> str:
    parts = ["local prologue = {\n" + "".join(_row(each, "", "    ") for each in interface.prologue) + "}\n"]
    parts.append("local records = {\n" + "".join(_record(*each) for each in interface.records.items()) + "}\n")
    parts.append("-- By direction and index.\nlocal bodies = {\n")
    for number, direction in enumerate(DIRECTIONS):
        found = [body for body in interface.bodies.values() if body.direction == direction]
        parts.append(f"    [{number}] = {{\n" + "".join(map(_body, found)) + "    },\n")
    return "\n".join(parts[:2]) + "\n" + "".join(parts[2:]) + "}\n"


def _record(name: str, fields: tuple[Field, ...]) -> str:
    return f"    {name} = {{\n" + "".join(_row(each, name, "        ") for each in fields) + "    },\n"


def _body(body: Body) -> str:
    numbers = f'name = "{body.method}", magic = {body.magic:#010x}, version = {body.version}'
    if not body.fields:
        return f"        [{body.index}] = {{{numbers}, fields = {{}}}},\n"
    fields = "".join(_row(each, body.method, "            ") for each in body.fields)
    return f"        [{body.index}] = {{{numbers}, fields = {{\n{fields}        }}}},\n"


def _row(field: Field, owner: str, indent: str) -> str:
    parts = [f'kind = "{field.kind}"', f'name = "{field.name}"']
    parts += [f'count = "{field.count}"'] if field.count else []
    parts += [f"tag = {field.tag}"] if field.tag >= 0 else []
    parts += [f"capacity = {field.capacity}"] if field.capacity else []
    parts += [f'record = "{field.record}"'] if field.record else []
    parts += [f'filter = "{filter_name(owner, field)}"'] if owner and field.kind != "record" else []
    return f"{indent}{{{', '.join(parts)}}},\n"
