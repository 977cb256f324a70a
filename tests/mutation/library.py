"""Compiles and links the library with a mutant in it, quickly: nothing is compiled that the mutant does not change."""

import concurrent.futures
import functools
import json
import pathlib
import re
import shlex
import subprocess
import tempfile

from changes import Mutant

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build"


def compile_commands() -> dict[pathlib.Path, list[str]]:
    """How the release build compiles each source of the library, without level, debug information and warnings."""
    commands = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        if ROOT / "src" in source.parents:
            words = shlex.split(entry["command"])
            words = words[:words.index("-o")]
            if "ccache" in words[0]:
                words = words[1:]
            commands[source] = [w for w in words if not re.match(r"-[gWO]", w)] + ["-w"]
    return commands


def own_names(source: pathlib.Path) -> set[str]:
    """What a source defines for itself."""
    inside = re.search(r"^namespace \{$(.*)^\} // namespace$", source.read_text(), re.MULTILINE | re.DOTALL)
    lines = inside.group(1).splitlines() if inside else []
    pattern = re.compile(r"(?:struct|class|enum|using) (\w+)|(?:\[\[.*\]\] )?(?!static_assert)[\w:].*?[ *&](\w+)(?:\(| =|;)")
    return {m.group(1) or m.group(2) for m in map(pattern.match, lines) if m}


class Library:
    """The objects of the sources as they are, and all sources as one, for the mutants of headers.

    In one source, names that several sources have for something of their own stand in each other's way. They get the
    name of their source in front.
    """

    def __init__(self, scratch: pathlib.Path) -> None:
        self.scratch = scratch
        self.commands = compile_commands()
        self.objects = {source: scratch / f"{source.stem}.o" for source in self.commands}
        with concurrent.futures.ThreadPoolExecutor() as pool:
            list(pool.map(self.compile_original, self.commands))
        self.whole = "".join(map(self.included, self.commands))
        self.command = next(iter(self.commands.values()))

    def compile_original(self, source: pathlib.Path) -> None:
        self.compile(source, source.parent, self.commands[source], "-O0", self.objects[source])

    def included(self, source: pathlib.Path) -> str:
        others = set().union(*(own_names(other) for other in self.commands if other != source))
        names = sorted(own_names(source) & others)
        return "".join([*(f"#define {name} {source.stem}_{name}\n" for name in names), f'#include "{source}"\n',
                        *(f"#undef {name}\n" for name in names)])

    def compile(self, file: pathlib.Path, home: pathlib.Path, command: list[str], level: str,
                target: pathlib.Path) -> None:
        """`home` is where the file's own includes are found."""
        words = [*command, level, "-iquote", str(home), "-o", str(target), "-c", str(file)]
        subprocess.run(words, check=True, stderr=subprocess.DEVNULL)

    def translate(self, path: pathlib.Path, text: str, level: str, directory: pathlib.Path) -> pathlib.Path:
        """The object of a source, or of all of them for a header, with this text in place of the file's."""
        home = (ROOT / path).parent
        file = directory / path.name
        file.write_text(text)
        command = self.commands.get(ROOT / path, self.command)
        if path.suffix == ".h":
            whole = directory / "whole.cpp"
            whole.write_text(f'#include "{file}"\n{self.whole}')
            file = whole
        target = directory / "mutant.o"
        self.compile(file, home, command, level, target)
        return target

    def link(self, path: pathlib.Path, mutant: pathlib.Path, directory: pathlib.Path) -> None:
        """A library of this object and those that it does not replace."""
        others = [o for source, o in self.objects.items() if path.suffix == ".cpp" and source != ROOT / path]
        words = ["gcc", "-m32", "-shared", "-Wl,-soname,libGorvanet.so.1", "-Wl,--as-needed",
                 f"-Wl,--version-script={ROOT / 'src/exports.map'}", "-o", directory / "libGorvanet.so.1"]
        subprocess.run([*words, mutant, *others], check=True, stderr=subprocess.DEVNULL)

    def build(self, path: pathlib.Path, text: str, directory: pathlib.Path) -> None:
        self.link(path, self.translate(path, text, "-O0", directory), directory)

    def same_code(self, mutant: Mutant, directory: pathlib.Path) -> bool:
        """Does the optimiser make the same of the mutant as of the original?"""
        original = (ROOT / mutant.path).read_text()
        return self.optimised(mutant.path, mutant.apply(original), directory) == self.original(mutant.path)

    @functools.cache
    def original(self, path: pathlib.Path) -> bytes:
        with tempfile.TemporaryDirectory(dir=self.scratch) as name:
            return self.optimised(path, (ROOT / path).read_text(), pathlib.Path(name))

    def optimised(self, path: pathlib.Path, text: str, directory: pathlib.Path) -> bytes:
        target = self.translate(path, text, "-O2", directory)
        subprocess.run(["strip", "--strip-unneeded", target], check=True)
        return target.read_bytes()
