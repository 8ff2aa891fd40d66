#!/usr/bin/env python3
"""Compares docs/settings.md with the directive table and with the code that reads the settings."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
TABLE = ROOT / "src/config/directives.cpp"
PAGE = ROOT / "docs/settings.md"
NOT_YET = "not yet"
WORDS = {
    "Character": "character",
    "Color": "color",
    "String": "text",
    "Password": "password",
    "Include": "file",
    "anyPath": "path",
    "mustExist": "existing folder",
}


class Table:
    """The rows of directives.cpp, as the page tells them."""

    def __init__(self, source):
        self.ranges = dict(re.findall(r"Range (\w+)\{(-?\d+, -?\d+)\};", source))
        names = {name: re.findall(r'u"([^"]*)"', body) for name, body in re.findall(r"(\w+)\[\] = \{([^}]*)\};", source)}
        self.lists = {name: names[array] for name, array in re.findall(r"ChoiceList (\w+) = List\((\w+)\);", source)}
        self.rows = {}
        for kind, name, rest in re.findall(r'^    (\w+)\((?:ROW\((\w+)\)|u"Include")(.*)\),$', source, re.MULTILINE):
            # A comma or a quote may be the default itself: only the ones between arguments part them.
            arguments = re.findall(r"u'\\?.'|[^,\s]+", rest)
            self.rows[name or "Include"] = self.describe(kind, arguments)

    def describe(self, kind, arguments):
        """The values and the default."""
        if kind == "YesNo":
            return ", ".join(self.lists["yesNo"]), arguments[0].capitalize()
        if kind == "Choice":
            names = self.lists[arguments[1][1:]]
            wanted = arguments[0].split("::")[-1].replace("automatic", "auto")
            return ", ".join(names), next(name for name in names if name.lower() == wanted.lower())
        if kind in ("Signed", "Unsigned"):
            limits = self.ranges.get(arguments[1].lstrip("&"))
            return limits.replace(", ", " to ") if limits else "number", arguments[0]
        if kind == "Character":
            return WORDS[kind], f"`{arguments[0].removeprefix('u').strip(chr(39))}`"
        return WORDS[arguments[0] if kind == "Path" else kind], ""


def page_rows(text):
    for line in text.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if len(cells) == 5 and re.fullmatch(r"\w+", cells[0]) and cells[0] != "name":
            yield cells


def readers():
    """For each field the first file that asks for its value."""
    found = {}
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        if path != TABLE:
            for name in re.findall(r"(?:aIniFile\.|INIFILE::|ini->)(\w+)", path.read_text()):
                found.setdefault(name, path.relative_to(ROOT).as_posix())
    return found


def findings():
    table = Table(TABLE.read_text())
    read = readers()
    seen = set()
    for name, values, default, meaning, effect in page_rows(PAGE.read_text()):
        if name in seen or name not in table.rows:
            yield f"{name} stands twice" if name in seen else f"{name} is no setting"
            continue
        seen.add(name)
        if (values, default) != table.rows[name]:
            yield f"{name}: values and default are {table.rows[name]}"
        if not meaning or not effect:
            yield f"{name}: a cell is empty"
        if name != "Include" and (effect == NOT_YET) == (name in read):
            yield f"{name}: {'read by ' + read[name] if name in read else 'nothing reads it'}, takes effect: {effect}"
    yield from (f"{name} is missing" for name in sorted(table.rows.keys() - seen))
    if len(table.rows) != 248:
        yield f"{len(table.rows)} rows of the table were understood"


def main():
    found = list(findings())
    print("".join(f"docs/settings.md: {finding}\n" for finding in found), end="")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
