"""The changes that are made to src/: one small one of one statement each, wherever a line can be wrong."""

import collections
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
RESULT = re.compile(r"return (status|in\.status|out\.status|[\w.]+->\w+\(.*\)|\w+\(.*\));", re.DOTALL)
DECLARATION = re.compile(r"[\w:<> ]+[\s*&]+\w+( =\s.*|\(.*\))?;$", re.DOTALL)
CONSTANT = re.compile(r"(?:#define|constexpr uint32_t) (\w+) +(?:= .|\d)")
ROW = re.compile(r"\.(\w+) = ([A-Za-z_]\w*),$", re.MULTILINE)

# A condition, or an operand of one: behind what, of what (brackets two deep), before what.
OPERAND = r"([^\s(),;?|&](?:\((?:[^()]|\([^()]*\))*\)|[^(),;?|&]|&(?!&))*?)"
JOINT = r" (?:&&|\|\||\?) "
CONDITION = re.compile(rf"(?:return |[=,] ){OPERAND}(?={JOINT})|; {OPERAND}(?={JOINT}|; )|"
                       rf"(?:if \(|&& |\|\| ){OPERAND}(?={JOINT}|[;)])")

# Where in a statement what is there becomes something else: start, end, replacement.
Change = tuple[int, int, str]

# What may stand in place of a name.
Others = dict[str, list[str]]


@dataclasses.dataclass(frozen=True)
class Mutant:
    path: pathlib.Path  # from the root of the tree
    number: int         # of the statement's first line, from 0
    statement: str
    changed: str

    def __str__(self) -> str:
        return f"{self.path}:{self.number + 1}: {one_line(self.statement)}  =>  {one_line(self.changed)}"

    def identity(self) -> str:
        """Without the line's number, which changes with the lines above it."""
        return f"{self.path}: {one_line(self.statement)}  =>  {one_line(self.changed)}"

    def apply(self, text: str) -> str:
        """The lines behind the statement stay where they are."""
        lines = text.splitlines()
        count = self.statement.count("\n") + 1
        missing = count - 1 - self.changed.count("\n")
        lines[self.number:self.number + count] = [self.changed + "\n" * missing]
        return "\n".join(lines) + "\n"


def one_line(statement: str) -> str:
    return " ".join(statement.split())


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


def other_tokens(token: str, others: Others) -> list[str]:
    if token.startswith('"'):
        return [other_text(token)]
    if re.match(r"0[xX]", token):
        return [hex(int(token, 16) + step) for step in (1, -1)]
    if token.isdigit():
        return [str(int(token) + step) for step in (1, -1) if int(token) + step >= 0]
    return WORDS.get(token, []) + OPERATORS.get(token, []) + others.get(token, [])


def token_changes(statement: str, others: Others) -> Iterator[Change]:
    for match in TOKEN.finditer(statement):
        for other in other_tokens(match.group(), others):
            yield match.start(), match.end(), other


def condition_changes(statement: str) -> Iterator[Change]:
    """Each condition, and each operand of one, always true and never."""
    for match in CONDITION.finditer(statement):
        for other in ("true", "false"):
            yield *match.span(match.lastindex or 0), other


def argument_swaps(statement: str) -> Iterator[Change]:
    """Each pair of neighbouring arguments without brackets of their own."""
    for match in re.finditer(r"(?<=[(,])\s*(?=([^\s(),][^(),]*)(,\s*)([^(),]+)[),])", statement):
        first, between, second = match.groups()
        yield match.end(), match.end(3), second + between + first


def value_changes(statement: str) -> Iterator[Change]:
    """What a variable or a row of a table starts with, left out."""
    stripped = statement.strip()
    if re.match(r"\.\w+ = [A-Za-z]", stripped) or DECLARATION.match(stripped) and " =" in stripped:
        yield statement.index(" ="), len(statement) - 1, " = {}"


def statement_changes(statement: str) -> Iterator[Change]:
    """A statement deleted, a result replaced."""
    stripped = statement.strip()
    if not stripped.endswith(";") or re.match(r"(constexpr|static|using|struct|case|}|extern|typedef|\[\[)", stripped):
        return
    start = len(statement) - len(statement.lstrip())
    if stripped.startswith("return "):
        yield start, len(statement), "return {};"
        if RESULT.fullmatch(stripped):
            yield start, len(statement), stripped[:-1] + " + 1;"
    elif not DECLARATION.match(stripped):
        yield start, len(statement), ";"


def changed_statements(statement: str, others: Others) -> Iterator[str]:
    seen = {statement}
    for changes in (token_changes(statement, others), condition_changes(statement), argument_swaps(statement),
                    value_changes(statement), statement_changes(statement)):
        for start, end, replacement in changes:
            changed = statement[:start] + replacement + statement[end:]
            if changed not in seen:
                seen.add(changed)
                yield changed


def is_whole(statement: str) -> bool:
    return statement.count("(") == statement.count(")") and not statement.endswith(("=", "+", "&&", "||", "?"))


def statements(text: str) -> Iterator[tuple[int, str]]:
    """Each with the number of its first line, without comments."""
    lines: list[str] = []
    for number, line in enumerate(text.splitlines()):
        lines.append(code_of(line))
        if is_whole("\n".join(lines)):
            yield number + 1 - len(lines), "\n".join(lines)
            lines.clear()


def neighbours(text: str) -> Others:
    """For what a row of a table holds, what the next row of that name holds; for the last one's, the first one's."""
    rows = collections.defaultdict(list)
    for name, value in ROW.findall(text):
        rows[name].append(value)
    return {value: [other] for values in rows.values() for value, other in zip(values, values[1:] + values[:1])}


def mutants(root: pathlib.Path) -> Iterator[Mutant]:
    texts = {path: path.read_text() for path in sorted([*(root / "src").rglob("*.cpp"), *(root / "src").rglob("*.h")])}
    constants = CONSTANT.findall("".join(texts.values()) + (root / "include/gorvanet.h").read_text())
    for path, text in texts.items():
        others = neighbours(text) | {name: [f"({name} ^ 1)"] for name in constants}
        for number, statement in statements(text):
            if statement.strip() and not statement.lstrip().startswith(("#", "static_assert")):
                for changed in changed_statements(statement, others):
                    yield Mutant(path.relative_to(root), number, statement, changed)
