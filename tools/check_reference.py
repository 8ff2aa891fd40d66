#!/usr/bin/env python3
"""Compares docs/reference with the tables of variables and functions: every row that is built has a section with a
signature, a sentence and an example, and every section has its row."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
PAGES = ROOT / "docs/reference"
COUNTERS = ROOT / "src/internals/result_counters.cpp"
TABLES = {"@": ROOT / "src/functions/rows.cpp", "_": ROOT / "src/internals/rows.cpp"}
WIDEST = 120


def built_rows():
    """Names as the reference spells them, of all rows with a function behind them."""
    names = set()
    for mark, table in TABLES.items():
        for name, handler in re.findall(r'^    \{u"([^"]+)", (\w+)\},$', table.read_text(), re.MULTILINE):
            if handler != "nullptr":
                names.add(mark + name)
    return names


def counters():
    """The variables that count what file commands did; they are told together, not one by one."""
    commands = re.search(r"commands\[\] = \{(.*?)\};", COUNTERS.read_text(), re.DOTALL)[1]
    return {f"_{name}_{kind}" for name in re.findall(r'u"(\w+)"', commands) for kind in ("files", "dirs", "errors")}


def sections(page):
    """The heading's names, its line number and the lines below it, for each section."""
    found = []
    in_block = False
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        if line.startswith("~~~"):
            in_block = not in_block
        if line.startswith("## ") and not in_block:
            found.append(([name.strip() for name in line[3:].split(",")], number, []))
        elif found:
            found[-1][2].append(line)
    return found


def check_section(lines):
    if not any(re.fullmatch(r"`.+`", line) for line in lines):
        yield "has no signature"
    if "~~~orv" not in lines:
        yield "has no example"
    text = "\n".join(lines).split("~~~")[0]
    if not any(line and not line.startswith("`") for line in text.splitlines()):
        yield "has no description"


def findings():
    rows = built_rows()
    known = rows | counters()
    told = {}
    for page in sorted(PAGES.glob("*.md")):
        name = page.relative_to(ROOT)
        for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
            if len(line) > WIDEST:
                yield f"{name}:{number}: longer than {WIDEST} columns"
        for names, number, lines in sections(page):
            place = f"{name}:{number}"
            for topic in names:
                if topic in told:
                    yield f"{place}: {topic} stands at {told[topic]} too"
                told[topic] = place
                if topic not in known:
                    yield f"{place}: {topic} is no row that is built"
            for fault in check_section(lines):
                yield f"{place}: {', '.join(names)} {fault}"
    for row in sorted(rows - set(told)):
        yield f"{row} has no section in docs/reference"


def main():
    found = list(findings())
    for finding in found:
        print(finding)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
