"""Breaks the library on purpose, once for each place in src/ that can be wrong, and sees the tests go red.

A mutant is one small change of one statement: a relational, logical or arithmetic operator, a number one up or down, a
named one with another lowest bit, a text with one letter changed, a log priority, a condition (or an operand of one)
that always holds or never does, two arguments swapped, a statement deleted, a value or a result left out or replaced,
a row of a table with what the next row of that name has. It is compiled, linked and run against the tests of the
release build, until one fails. Not counted are mutants that do not compile, and those whose machine code at -O2 is that
of the original: they are no change. Survivors that are equivalent for another reason stand in
tests/mutation/equivalent.txt, each with its proof.

Exit status 0 if at least 98 % are caught, and all in src/records, and at most 2 % stand in equivalent.txt; and, of all
mutants, if 1,500 are counted and nothing stands in equivalent.txt but survivors.
"""

import argparse
import collections
import concurrent.futures
import os
import pathlib
import subprocess
import sys
import tempfile

from changes import Mutant, mutants
from library import ROOT, Library
from suite import Suite

EQUIVALENT = ROOT / "tests/mutation/equivalent.txt"
LEAST = 1500


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--list", action="store_true", help="print the mutants and do no more")
    parser.add_argument("--only", default="", metavar="TEXT", help="mutants whose file name contains TEXT")
    parser.add_argument("--every", type=int, default=1, metavar="N", help="each N-th mutant")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), metavar="N", help="mutants at the same time")
    return parser.parse_args()


def judge(library: Library, suite: Suite, mutant: Mutant) -> str:
    """'stillborn', 'same', 'caught' or 'survived'."""
    with tempfile.TemporaryDirectory(dir=library.scratch) as name:
        directory = pathlib.Path(name)
        try:
            library.build(mutant.path, mutant.apply((ROOT / mutant.path).read_text()), directory)
        except subprocess.CalledProcessError:
            return "stillborn"
        if suite.fails_again(mutant.path, directory):
            return "caught"
        if library.same_code(mutant, directory):
            return "same"
        return "caught" if suite.fails(mutant.path, directory) else "survived"


def check_suite(library: Library, suite: Suite) -> None:
    """The tests must pass with what the library is, built in either way, and notice when there is none."""
    for path in (pathlib.Path("src/frame/users.cpp"), pathlib.Path("src/records/tlv.h")):
        with tempfile.TemporaryDirectory(dir=library.scratch) as name:
            directory = pathlib.Path(name)
            library.build(path, (ROOT / path).read_text(), directory)
            suite.learn_limits(directory)
            (directory / "libGorvanet.so.1").write_bytes(b"")
            if not suite.fails(path, directory):
                sys.exit("the tests take another library than the mutant's")
    suite.catchers.clear()


def equivalents() -> set[str]:
    return {line for line in EQUIVALENT.read_text().splitlines() if line.startswith("src/")}


def main() -> int:
    options = arguments()
    chosen = [m for m in mutants(ROOT) if options.only in str(m.path)][::options.every]
    if options.list:
        print("\n".join(map(str, chosen)))
        return 0

    whole = not options.only and options.every == 1
    known = equivalents()
    stale = set(known) if whole else set()
    counts: collections.Counter[str] = collections.Counter()
    survivors = []
    with tempfile.TemporaryDirectory() as scratch, concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        library, suite = Library(pathlib.Path(scratch)), Suite()
        check_suite(library, suite)
        for mutant, verdict in zip(chosen, pool.map(lambda m: judge(library, suite, m), chosen)):
            if verdict == "survived" and mutant.identity() in known:
                verdict = "equivalent"
                stale.discard(mutant.identity())
            counts[verdict] += 1
            if verdict == "survived":
                survivors.append(mutant)
                print("survived:", mutant, flush=True)
            if counts.total() % 100 == 0:
                print(f"{counts.total()} of {len(chosen)}, {counts['caught']} caught", file=sys.stderr, flush=True)

    for entry in sorted(stale):
        print("in equivalent.txt, but no survivor:", entry)
    counted = counts["caught"] + counts["survived"]
    score = 100 * counts["caught"] / max(counted, 1)
    print(", ".join(f"{counts[kind]} {kind}" for kind in ("stillborn", "same", "equivalent")), "left out")
    in_records = sum(m.path.parts[1] == "records" for m in survivors)
    print(f"mutation{'' if whole else ' of a part'}: {counts['caught']} of {counted} mutants caught, {score:.2f} %;",
          f"survivors in src/records: {in_records}")
    enough = counted >= (LEAST if whole else 1)
    return 0 if enough and score >= 98 and not in_records and not stale and counts["equivalent"] <= counted / 50 else 1


if __name__ == "__main__":
    sys.exit(main())
