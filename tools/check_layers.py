#!/usr/bin/env python3
"""Checks who includes whom: no floor of src/ includes from a higher one, no files include each other in a circle,
and pure rooms stay away from Windows. Prints what is wrong, one finding per line, and exits with 1."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
SOURCE = ROOT / "src"

# From the ground up. Those in one row may include each other.
FLOORS = [
    ("text", "lang"),
    ("platform",),
    ("engine",),
    ("config",),
    ("files",),
    ("expand",),
    ("core",),
    ("console",),
    ("batch",),
    ("internals",),
    ("functions",),
    ("commands",),
    ("lifecycle",),
    ("host",),
]
HEIGHT = {name: height for height, row in enumerate(FLOORS) for name in row}
GENERATED = "movacore_version.h"
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
WINDOWS_HEADERS = re.compile(r"(windows|win\w+|shell\w*|shl\w+|psapi|tlhelp32|io|conio|direct|process)\.h", re.IGNORECASE)


def read_includes():
    """For each file of src/: the project files and the system headers that it includes."""
    includes = {}
    for path in sorted(SOURCE.rglob("*")):
        if path.suffix in (".h", ".cpp", ".inc"):
            found = INCLUDE.findall(path.read_text(encoding="utf-8"))
            name = path.relative_to(SOURCE).as_posix()
            includes[name] = ([ours for ours, _ in found if ours], [system for _, system in found if system])
    return includes


def pure_rooms(includes):
    """Sources that are compiled natively as well: src/text and the list that the build reads."""
    listed = re.search(r"set\(MOVACORE_PURE_ROOMS(.*?)\)", (ROOT / "cmake/pure_rooms.cmake").read_text(), re.DOTALL)[1]
    rooms = [line.strip().removeprefix("src/") for line in listed.splitlines() if line.strip().startswith("src/")]
    return rooms + [name for name in includes if name.startswith("text/")]


def upward_includes(includes):
    for name, (ours, _) in includes.items():
        floor = name.split("/")[0]
        if floor not in HEIGHT:
            yield f"src/{name}: the folder {floor} is no floor; see FLOORS in tools/check_layers.py"
            continue
        for other in ours:
            if "/" not in other:
                if other != GENERATED:
                    yield f"src/{name}: includes {other} without its folder"
            elif HEIGHT.get(other.split("/")[0], -1) > HEIGHT[floor]:
                yield f"src/{name}: includes {other}, which is on a higher floor"


def circles(includes):
    state = {}

    def visit(name, way):
        if state.get(name) == "done" or name not in includes:
            return
        if name in way:
            yield "src/" + " -> src/".join([*way[way.index(name) :], name]) + ": a circle of includes"
            return
        for other in includes[name][0]:
            yield from visit(other, [*way, name])
        state[name] = "done"

    for name in includes:
        yield from visit(name, [])


def impure_rooms(includes):
    for room in pure_rooms(includes):
        seen, waiting = set(), [(room, room)]
        while waiting:
            name, way = waiting.pop()
            if name in seen or name not in includes:
                continue
            seen.add(name)
            for header in includes[name][1]:
                if WINDOWS_HEADERS.fullmatch(header):
                    yield f"src/{room}: a pure room includes <{header}> ({way})"
            waiting += [(other, f"{way} -> {other}") for other in includes[name][0]]


def main():
    includes = read_includes()
    findings = [*upward_includes(includes), *circles(includes), *impure_rooms(includes)]
    print("\n".join(findings), end="\n" if findings else "")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
