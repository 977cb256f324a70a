#!/usr/bin/env python3
"""Draws the pictures of the docs, and writes them beside itself.

    docs/pictures/draw.py            writes road.svg and body.svg
    docs/pictures/draw.py --check    says whether they are as this program draws them
"""

from __future__ import annotations

import sys
from html import escape
from pathlib import Path

# Colour names of the drawing: for a light page, for a dark one.
PALETTE = {
    "paper": ("#ffffff", "#0d1117"),
    "panel": ("#f6f8fa", "#161b22"),
    "edge": ("#d0d7de", "#30363d"),
    "ink": ("#1f2328", "#e6edf3"),
    "soft": ("#59636e", "#9198a1"),
    "forth": ("#0969da", "#4493f8"),
    "forth_fill": ("#ddf4ff", "#12263f"),
    "back": ("#1a7f37", "#3fb950"),
    "back_fill": ("#dafbe1", "#12261e"),
    "tag_fill": ("#fff8c5", "#2f2a14"),
    "tag": ("#7d4e00", "#d29922"),
    "value_fill": ("#ddf4ff", "#12263f"),
    "value": ("#0550ae", "#79c0ff"),
    "pad_fill": ("#eaeef2", "#21262d"),
    "pad": ("#59636e", "#9198a1"),
}

SANS = "-apple-system, 'Segoe UI', 'DejaVu Sans', Arial, sans-serif"
MONO = "ui-monospace, 'DejaVu Sans Mono', Menlo, Consolas, monospace"


def rules(theme: int) -> str:
    lines = [f".{name} {{ fill: {colours[theme]} }}" for name, colours in PALETTE.items()]
    lines += [f".{name}_line {{ stroke: {colours[theme]} }}" for name, colours in PALETTE.items()]
    return " ".join(lines)


def style() -> str:
    return (
        f"<style>text {{ font: 13px {SANS} }} .code {{ font: 12.5px {MONO} }} .small {{ font-size: 11.5px }} "
        f".title {{ font-weight: 600; font-size: 14px }} .line {{ fill: none; stroke-width: 2 }}\n"
        f"{rules(0)}\n@media (prefers-color-scheme: dark) {{ {rules(1)} }}</style>"
    )


class Drawing:
    def __init__(self, width: int, height: int, title: str) -> None:
        self.parts = [
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" '
            f'height="{height}" role="img" aria-label="{escape(title)}">',
            f"<title>{escape(title)}</title>",
            style(),
        ]
        self.box(0, 0, width, height, "paper", "edge", 10)

    def box(self, x: float, y: float, width: float, height: float, fill: str, line: str, radius: float = 6) -> None:
        self.parts.append(
            f'<rect class="{fill} {line}_line" x="{x + 0.5}" y="{y + 0.5}" width="{width - 1}" '
            f'height="{height - 1}" rx="{radius}"/>'
        )

    def text(self, x: float, y: float, words: str, kind: str = "ink", anchor: str = "start") -> None:
        self.parts.append(f'<text class="{kind}" x="{x}" y="{y}" text-anchor="{anchor}">{escape(words)}</text>')

    def path(self, colour: str, points: list[tuple[float, float]]) -> None:
        """A line with round corners and an arrow at its end."""
        radius = 10
        steps = [f"M{points[0][0]} {points[0][1]}"]
        for before, corner, after in zip(points, points[1:], points[2:]):
            steps.append(f"L{near(corner, before, radius)} Q{corner[0]} {corner[1]} {near(corner, after, radius)}")
        steps.append(f"L{points[-1][0]} {points[-1][1]}")
        self.parts.append(f'<path class="line {colour}_line" d="{" ".join(steps)}"/>')
        self.arrow(colour, points[-2], points[-1])

    def arrow(self, colour: str, before: tuple[float, float], tip: tuple[float, float]) -> None:
        along = (sign(tip[0] - before[0]), sign(tip[1] - before[1]))
        across = (along[1], along[0])
        corners = [
            tip,
            (tip[0] - 9 * along[0] + 5 * across[0], tip[1] - 9 * along[1] + 5 * across[1]),
            (tip[0] - 9 * along[0] - 5 * across[0], tip[1] - 9 * along[1] - 5 * across[1]),
        ]
        points = " ".join(f"{x},{y}" for x, y in corners)
        self.parts.append(f'<polygon class="{colour}" points="{points}"/>')

    def finish(self) -> str:
        return "\n".join([*self.parts, "</svg>"]) + "\n"


def sign(value: float) -> int:
    return (value > 0) - (value < 0)


def near(corner: tuple[float, float], other: tuple[float, float], distance: float) -> str:
    x = corner[0] + distance * sign(other[0] - corner[0])
    y = corner[1] + distance * sign(other[1] - corner[1])
    return f"{x} {y}"


# ---- The road of a request ------------------------------------------------------------------------------------------

STATION_WIDTH = 206
STATION_HEIGHT = 46


def station(drawing: Drawing, x: float, y: float, colour: str, name: str, note: str) -> None:
    """A box centred at x, with its top at y."""
    left = x - STATION_WIDTH / 2
    drawing.box(left, y, STATION_WIDTH, STATION_HEIGHT, colour + "_fill", colour)
    drawing.text(x, y + 19, name, "code ink", "middle")
    drawing.text(x, y + 36, note, "small soft", "middle")


def lane(
    drawing: Drawing, x: float, rows: list[float], colour: str, stations: list[tuple[str, str]], down: bool
) -> None:
    """Stations one above the other, each with its name and note, and the arrows between them."""
    for y, (name, note) in zip(rows, stations):
        station(drawing, x, y, colour, name, note)
    for upper, lower in zip(rows, rows[1:]):
        ends = [(x, upper + STATION_HEIGHT), (x, lower)]
        drawing.path(colour, ends if down else ends[::-1])


def panel(drawing: Drawing, x: float, y: float, width: float, height: float, title: str) -> None:
    drawing.box(x, y, width, height, "panel", "edge", 8)
    drawing.text(x + 16, y + 24, title, "title ink")


def road() -> str:
    drawing = Drawing(980, 452, "The road of a request, from the client to the service and back")
    panel(drawing, 16, 16, 464, 320, "client process")
    panel(drawing, 500, 16, 464, 320, "service process")
    drawing.box(16, 352, 948, 84, "panel", "edge", 8)
    rows = [56.0, 154.0, 252.0]
    client_back, client_forth, service_forth, service_back = 131.0, 365.0, 615.0, 849.0

    for y, words in ((128, "your program"), (144, "libGorvanet")):
        for left in (16, 500):
            drawing.text(left + 232, y, words, "small soft", "middle")
    for left in (16, 500):
        drawing.parts.append(
            f'<line class="edge_line" x1="{left + 1}" x2="{left + 463}" y1="132.5" y2="132.5" stroke-dasharray="4 4"/>'
        )

    lane(
        drawing, client_forth, rows, "forth",
        [("gorvaNet_sendReq_setMtu", "1 · asks for an MTU of 1400"), ("request body", "2 · the arguments, copied"),
         ("serializeBody", "3 · body to bytes")],
        True,
    )
    lane(
        drawing, service_forth, rows, "forth",
        [("your handler", "7 · gets message and MTU"), ("gorvaNet_recvReq_setMtu", "6 · checks the magic"),
         ("unserializeBody", "5 · bytes to body")],
        False,
    )
    lane(
        drawing, service_back, rows, "back",
        [("gorvaNet_sendRes_setMtu", "8 · answers, now or later"), ("response body", "9 · the result"),
         ("serializeBody", "10 · body to bytes")],
        True,
    )
    lane(
        drawing, client_back, rows, "back",
        [("your callback", "14 · gets the result"), ("receiver", "13 · checks the magic"),
         ("unserializeBody", "12 · bytes to body")],
        False,
    )

    bottom = rows[-1] + STATION_HEIGHT
    drawing.path("forth", [(client_forth, bottom), (client_forth, 380), (service_forth, 380), (service_forth, bottom)])
    drawing.path("back", [(service_back, bottom), (service_back, 414), (client_back, 414), (client_back, bottom)])
    caption(drawing, 490, 380, "4 · request, 36 bytes")
    caption(drawing, 490, 414, "11 · response, 36 bytes")
    drawing.text(32, 376, "the bus", "title ink")
    return drawing.finish()


def caption(drawing: Drawing, x: float, y: float, words: str) -> None:
    """Words on a line."""
    drawing.box(x - 84, y - 12, 168, 24, "panel", "panel", 4)
    drawing.text(x, y + 4.5, words, "ink", "middle")


# ---- An encoded body ------------------------------------------------------------------------------------------------

CELL = 27
GAP = 8
LEFT = 62
ROW = 62


def number(tag: int, value: int) -> tuple[int, bytes]:
    return tag, value.to_bytes(4, "big")


def text(tag: int, value: str) -> tuple[int, bytes]:
    """Characters, NUL, zeros: the bytes with the NUL, rounded down to a multiple of 4, plus 4."""
    characters = value.encode("ascii") + b"\0"
    return tag, characters.ljust((len(characters) & ~3) + 4, b"\0")


def cells(drawing: Drawing, x: float, y: float, data: bytes, kind: str) -> float:
    """A row of bytes. Returns where the next begins."""
    for index, byte in enumerate(data):
        drawing.box(x + index * CELL, y, CELL + 1, 26, kind + "_fill", "edge", 0)
        drawing.text(x + (index + 0.5) * CELL, y + 17.5, f"{byte:02x}", f"code {kind}", "middle")
    return x + len(data) * CELL


def item(drawing: Drawing, y: float, offset: int, tag: int, value: bytes, used: int, words: tuple[str, str]) -> None:
    drawing.text(LEFT - 14, y + 17.5, str(offset), "code soft", "end")
    x = cells(drawing, LEFT, y, tag.to_bytes(4, "big"), "tag")
    x = cells(drawing, x + GAP, y, len(value).to_bytes(4, "big"), "pad")
    x = cells(drawing, x + GAP, y, value[:used], "value")
    cells(drawing, x, y, value[used:], "pad")
    right = LEFT + 16 * CELL + 2 * GAP + 18
    drawing.text(right, y + 11, words[0], "ink")
    drawing.text(right, y + 27, words[1], "small soft")


def column(drawing: Drawing, at: float, count: int, words: str) -> None:
    middle = LEFT + at + count * CELL / 2
    drawing.text(middle, 78, words, "small soft", "middle")
    drawing.parts.append(
        f'<path class="line edge_line" d="M{LEFT + at} 92 v-7 h{count * CELL} v7"/>'
    )


def body() -> str:
    items = [
        (number(0, 0x39132011), 4, ("magic", "of SetDhcp, and of SetOsIfc too")),
        (number(1, 0), 4, ("version", "of the method's bodies")),
        (text(3, "eth0"), 5, ("ifName, a text", "\"eth0\", NUL, 1 to 4 zeros")),
        (number(4, 1), 4, ("dhcp, a number", "1, in big-endian order")),
    ]
    total = sum(8 + len(value) for (_, value), _, _ in items)
    drawing = Drawing(760, 112 + ROW * len(items) + 28, "The encoded body of a SetDhcp request")
    drawing.text(24, 38, f"The request SetDhcp(\"eth0\", 1), encoded to {total} bytes", "title ink")
    column(drawing, 0, 4, "tag")
    column(drawing, 4 * CELL + GAP, 4, "length of the value")
    column(drawing, 8 * CELL + 2 * GAP, 8, "value")
    offset = 0
    for row, ((tag, value), used, words) in enumerate(items):
        item(drawing, 104 + row * ROW, offset, tag, value, used, words)
        offset += 8 + len(value)
    drawing.text(24, 112 + ROW * len(items) + 4, "Two items open every body. Its fields follow in a fixed order; "
                 "records in it are simply more items.", "small soft")
    return drawing.finish()


def main(arguments: list[str]) -> int:
    here = Path(__file__).resolve().parent
    pictures = {"road.svg": road(), "body.svg": body()}
    if arguments == ["--check"]:
        old = [name for name, content in pictures.items() if (here / name).read_text(encoding="utf-8") != content]
        for name in old:
            print(f"{name} is not what docs/pictures/draw.py draws; run it")
        return 1 if old else 0
    if arguments:
        print(__doc__, file=sys.stderr)
        return 2
    for name, content in pictures.items():
        (here / name).write_text(content, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
