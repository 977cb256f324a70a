"""Tables of what was measured, each figure next to its limit."""

import dataclasses
from typing import Any


@dataclasses.dataclass(frozen=True)
class Figure:
    name: str
    value: float
    limit: float | None = None  # none: for information
    best: float | None = None   # for a limit that is not kept: no more than this passes

    def keeps_limit(self) -> bool:
        return self.limit is None or self.value <= self.limit

    def passes(self) -> bool:
        return self.keeps_limit() or (self.best is not None and self.value <= self.best)

    def verdict(self) -> str:
        if self.limit is None:
            return ""
        if self.keeps_limit():
            return "pass"
        return f"**over**, best known {shown(self.best)}" if self.passes() else "**fail**"


@dataclasses.dataclass(frozen=True)
class Table:
    title: str
    figures: list[Figure]

    def as_json(self) -> dict[str, Any]:
        rows = [{**dataclasses.asdict(figure), "keeps_limit": figure.keeps_limit(), "passes": figure.passes()}
                for figure in self.figures]
        return {"title": self.title, "figures": rows}

    def text(self) -> str:
        lines = [f"## {self.title}", "", "| | measured | limit | |", "|---|---:|---:|---|"]
        for figure in self.figures:
            lines.append(f"| {figure.name} | {shown(figure.value)} | {shown(figure.limit)} | {figure.verdict()} |")
        return "\n".join(lines) + "\n"

    def passes(self) -> bool:
        return all(figure.passes() for figure in self.figures)


@dataclasses.dataclass(frozen=True)
class Overview:
    """Figures without limits, by row and column."""

    title: str
    columns: list[str]
    rows: dict[str, list[float]]

    def as_json(self) -> dict[str, Any]:
        return dataclasses.asdict(self)

    def text(self) -> str:
        lines = [f"## {self.title}", "", f"| | {' | '.join(self.columns)} |", "|---|" + "---:|" * len(self.columns)]
        for name, values in self.rows.items():
            lines.append(f"| {name} | {' | '.join(map(shown, values))} |")
        return "\n".join(lines) + "\n"

    def passes(self) -> bool:
        return True


def shown(number: float | None) -> str:
    if number is None:
        return ""
    return f"{number:,}" if isinstance(number, int) else f"{number:,.2f}"

