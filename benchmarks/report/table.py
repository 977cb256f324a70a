"""One table of everything that was measured, each figure next to its limit."""

import dataclasses
from collections.abc import Iterable


@dataclasses.dataclass(frozen=True)
class Figure:
    name: str
    value: float
    limit: float | None = None  # none: for information

    def passes(self) -> bool:
        return self.limit is None or self.value <= self.limit

    def verdict(self) -> str:
        if self.limit is None:
            return ""
        return "pass" if self.passes() else "**fail**"


def shown(number: float | None) -> str:
    if number is None:
        return ""
    return f"{number:,}" if isinstance(number, int) else f"{number:,.2f}"


def markdown(title: str, figures: Iterable[Figure]) -> str:
    lines = [f"## {title}", "", "| | measured | limit | |", "|---|---:|---:|---|"]
    for figure in figures:
        lines.append(f"| {figure.name} | {shown(figure.value)} | {shown(figure.limit)} | {figure.verdict()} |")
    return "\n".join(lines) + "\n"
