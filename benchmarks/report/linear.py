"""Cost over the number of list entries: the counts, a line through them, and the plot."""

import dataclasses
import pathlib
import re
import statistics

import callgrind

RECORDS = {"Infos": "ipv4_properties", "Prefixes": "ipv6_prefixes", "Confs": "ipv6_prefix_addr_conf_list"}
OPERATIONS = ["serialize_lg", "serialize", "unserialize"]
COLOURS = {"Infos": "#1b6ca8", "Prefixes": "#c0392b", "Confs": "#2e8b57"}

Points = dict[int, int]  # instructions by number of entries


@dataclasses.dataclass(frozen=True)
class Line:
    start: float
    slope: float

    def at(self, entries: int) -> float:
        return self.start + self.slope * entries


def count(build: pathlib.Path) -> dict[tuple[str, str], Points]:
    """The points of each (list, operation)."""
    profile = callgrind.run(build / "benchmarks/gorvanet_linear", "collected")
    found: dict[tuple[str, str], Points] = {}
    for (caller, callee), cost in callgrind.calls(profile).items():
        codec = re.search(r"measured_(\w+)<\(anonymous namespace\)::(\w+), (\d+)u>", caller)
        if codec and callee.endswith("[PLT]"):
            found.setdefault((codec[2], codec[1]), {})[int(codec[3])] = cost
    return {series: dict(sorted(points.items())) for series, points in sorted(found.items())}


def fit(points: Points) -> Line:
    slope, start = statistics.linear_regression(list(points), list(points.values()))
    return Line(start, slope)


def deviation(points: Points) -> float:
    """The largest distance of a point from the line, in percent of the cost of the full list."""
    line = fit(points)
    return 100 * max(abs(cost - line.at(entries)) for entries, cost in points.items()) / max(points.values())


# ---- The plot --------------------------------------------------------------------------------------------------------

WIDTH, HEIGHT = 300, 260  # of a panel's axes
LEFT, TOP, GAP = 60, 40, 75
ENTRIES = 20


def panel(operation: str, series: dict[str, Points], left: int) -> list[str]:
    """One operation: a line, its points and its formula for each list."""
    highest = max(max(points.values()) for points in series.values())
    step = nice_step(highest)
    top_cost = step * -(-highest // step)
    parts = axes(operation, left, step, top_cost)
    for number, (name, points) in enumerate(series.items()):
        line, colour = fit(points), COLOURS[name]
        ends = [(x_of(left, n), y_of(line.at(n), top_cost)) for n in (0, max(points))]
        parts.append(f'<path d="M{ends[0][0]:.1f} {ends[0][1]:.1f}L{ends[1][0]:.1f} {ends[1][1]:.1f}" '
                     f'stroke="{colour}" fill="none"/>')
        parts += [f'<circle cx="{x_of(left, n):.1f}" cy="{y_of(cost, top_cost):.1f}" r="2.5" fill="{colour}"/>'
                  for n, cost in points.items()]
        parts.append(text(left, TOP + HEIGHT + 52 + 16 * number,
                          f"{RECORDS[name]}: {line.start:.0f} + {line.slope:.1f} n", f'fill="{colour}"'))
    return parts


def nice_step(highest: int) -> int:
    """Of the axis of costs: about five steps."""
    return next(step for step in (100, 200, 500, 1000, 2000, 5000, 10000) if highest / step <= 6)


def x_of(left: int, entries: int) -> float:
    return left + WIDTH * entries / ENTRIES


def y_of(cost: float, top_cost: int) -> float:
    return TOP + HEIGHT * (1 - cost / top_cost)


def axes(operation: str, left: int, step: int, top_cost: int) -> list[str]:
    parts = [text(left + WIDTH / 2, TOP - 16, operation, 'text-anchor="middle" font-weight="bold"')]
    for cost in range(0, top_cost + 1, step):
        y = y_of(cost, top_cost)
        parts.append(f'<path d="M{left} {y:.1f}h{WIDTH}" stroke="#ddd"/>')
        parts.append(text(left - 6, y + 4, f"{cost:,}", 'text-anchor="end"'))
    for entries in range(0, ENTRIES + 1, 5):
        parts.append(text(x_of(left, entries), TOP + HEIGHT + 16, str(entries), 'text-anchor="middle"'))
    parts.append(text(left + WIDTH / 2, TOP + HEIGHT + 32, "entries", 'text-anchor="middle"'))
    return parts


def text(x: float, y: float, words: str, attributes: str = "") -> str:
    return f'<text x="{x:.0f}" y="{y:.0f}" {attributes}>{words}</text>'


def plot(found: dict[tuple[str, str], Points], file: pathlib.Path) -> None:
    width = LEFT + len(OPERATIONS) * (WIDTH + GAP) - GAP + 20
    height = TOP + HEIGHT + 100
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" font-family="sans-serif" '
             'font-size="12">',
             "<title>Instructions of a call over the number of list entries, and the line through them</title>",
             f'<rect width="{width}" height="{height}" fill="white"/>']
    for number, operation in enumerate(OPERATIONS):
        series = {name: found[name, operation] for name in RECORDS}
        parts += panel(operation, series, LEFT + number * (WIDTH + GAP))
    file.write_text("\n".join([*parts, "</svg>"]) + "\n")
