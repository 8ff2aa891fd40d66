"""Makes a case of a page of docs/reference: its examples, run in order as one script. README.md describes the format."""

import re

from case_file import Case, CaseError, Section

FENCE = re.compile(r"(~{3,})(\S*) ?(.*)")
INPUT = re.compile(r"> ?(.*)")


def parse(path, text):
    """The page's one case, in a list; an empty list for a page without examples. Raises CaseError."""
    case = Case(path, "examples of the reference", 1, is_reference=True)
    script, output = [], []
    for kind, name, number, lines in blocks(path, text):
        if kind == "file":
            case.files.append(Section("file", name, lines=lines))
        elif kind == "orv":
            if not lines or not INPUT.fullmatch(lines[0]):
                raise CaseError(f'{path}:{number + 1}: an example begins with "> "')
            for line in lines:
                command = INPUT.fullmatch(line)
                if command:
                    script.append(command[1])
                else:
                    output.append(line)
    if not script:
        return []
    case.script = Section("script", lines=script)
    case.stdout = Section("stdout", lines=output, is_pattern=True)
    return [case]


def blocks(path, text):
    """Kind, name, line number and lines of each fenced block."""
    lines = text.splitlines()
    at = 0
    while at < len(lines):
        opening = FENCE.fullmatch(lines[at])
        at += 1
        if not opening:
            continue
        start = at
        while at < len(lines) and lines[at] != opening[1]:
            at += 1
        if at == len(lines):
            raise CaseError(f"{path}:{start}: a block that is not closed")
        yield opening[2], opening[3], start, lines[start:at]
        at += 1
