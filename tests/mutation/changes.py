"""The changes that are made to src/: one small one of one line each, wherever a line can be wrong."""

import dataclasses
import pathlib
import re
from collections.abc import Iterator

OPERATORS = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">="], ">": [">=", "<="], "<=": ["<"], ">=": [">"],
    "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "&": ["|"], "|": ["&"], "!": [""], "~": [""],
    "<<": [">>"], ">>": ["<<"], "+=": ["-="], "++": ["--"],
}
WORDS = {
    "LOG_ERR": ["LOG_WARNING", "LOG_EMERG"], "LOG_WARNING": ["LOG_ERR"], "LOG_EMERG": ["LOG_ERR"],
    "true": ["false"], "false": ["true"],
}
TOKEN = re.compile(
    r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'|0[xX][0-9a-fA-F]+|\d+|[A-Za-z_]\w*|->|::|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||\+=|.'
)
RESULT = re.compile(r"return (status|in\.status|out\.status|[\w.]+->\w+\(.*\)|\w+\(.*\));")
DECLARATION = re.compile(r"[\w:<>]+[\s*&]+\w+( = .*|\(.*\))?;$")

# Where in a line what is there becomes something else: start, end, replacement.
Change = tuple[int, int, str]


@dataclasses.dataclass(frozen=True)
class Mutant:
    path: pathlib.Path  # from the root of the tree
    number: int         # of the line, from 0
    line: str
    changed: str

    def __str__(self) -> str:
        return f"{self.path}:{self.number + 1}: {self.line.strip()}  =>  {self.changed.strip() or 'nothing'}"

    def identity(self) -> str:
        """Without the line's number, which changes with the lines above it."""
        return f"{self.path}: {self.line.strip()}  =>  {self.changed.strip() or 'nothing'}"

    def apply(self, text: str) -> str:
        lines = text.splitlines()
        lines[self.number] = self.changed
        return "\n".join(lines) + "\n"


def code_of(line: str) -> str:
    """The line without its comment."""
    return re.sub(r'^((?:"(?:\\.|[^"\\])*"|[^"])*?)//.*', r"\1", line).rstrip()


def other_text(text: str) -> str:
    """With one letter in the other case, but for those of a conversion; something where nothing was."""
    letter = re.search(r"(?<![%\\])[A-Za-z](?!\w*\()", text)
    if not letter:
        return '"x"'
    at = letter.start()
    return text[:at] + text[at].swapcase() + text[at + 1:]


def other_tokens(token: str) -> list[str]:
    if token.startswith('"'):
        return [other_text(token)]
    if re.match(r"0[xX]", token):
        return [hex(int(token, 16) + step) for step in (1, -1)]
    if token.isdigit():
        return [str(int(token) + step) for step in (1, -1) if int(token) + step >= 0]
    return WORDS.get(token, []) + OPERATORS.get(token, [])


def token_changes(line: str) -> Iterator[Change]:
    for match in TOKEN.finditer(line):
        for other in other_tokens(match.group()):
            yield match.start(), match.end(), other


def argument_swaps(line: str) -> Iterator[Change]:
    """Each pair of neighbouring arguments without brackets of their own."""
    for match in re.finditer(r"(?<=[(,])\s*([^(),]+),\s*([^(),]+)(?=[),])", line):
        yield match.start(), match.end(), f" {match.group(2).strip()}, {match.group(1).strip()}"


def statement_changes(line: str) -> Iterator[Change]:
    """A statement deleted, a result replaced."""
    stripped = line.strip()
    if not stripped.endswith(";") or re.match(r"(constexpr|static|using|struct|case|}|extern|typedef|#)", stripped):
        return
    start = len(line) - len(line.lstrip())
    if stripped.startswith("return "):
        yield start, len(line), "return {};"
        if RESULT.fullmatch(stripped):
            yield start, len(line), stripped[:-1] + " + 1;"
    elif not DECLARATION.match(stripped):
        yield start, len(line), ";"


def changed_lines(line: str) -> Iterator[str]:
    seen = {line}
    for changes in (token_changes, argument_swaps, statement_changes):
        for start, end, replacement in changes(line):
            changed = line[:start] + replacement + line[end:]
            if changed not in seen:
                seen.add(changed)
                yield changed


def mutants(root: pathlib.Path) -> Iterator[Mutant]:
    for path in sorted([*(root / "src").rglob("*.cpp"), *(root / "src").rglob("*.h")]):
        for number, full in enumerate(path.read_text().splitlines()):
            line = code_of(full)
            if line.strip() and not line.lstrip().startswith("#"):
                for changed in changed_lines(line):
                    yield Mutant(path.relative_to(root), number, line, changed)
