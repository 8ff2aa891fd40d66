"""Rewrites the expectations of failing cases to what they gave, for a person to review."""

import re
from collections import defaultdict


def rewrite(root, failing):
    """Takes pairs of a case and its differences. Returns the paths of the files it has changed."""
    edits = defaultdict(list)
    for case, differences in failing:
        for difference in differences:
            edits[case.path] += _edits(case, difference)
    for path, changes in edits.items():
        file = root / path
        lines = file.read_text(encoding="utf-8").splitlines()
        # From the bottom up, so that the places of the others stay true. New sections of one case are all put in
        # at the same place, the last one first.
        for start, count, new in sorted(reversed(changes), key=lambda change: change[0], reverse=True):
            lines[start : start + count] = new
        file.write_text("\n".join(lines) + "\n", encoding="utf-8")
    return sorted(path for path, changes in edits.items() if changes)


def _edits(case, difference):
    """Line index, number of lines to replace, and the lines to put there."""
    if difference.exit_code is not None:
        heading = f"--- exit {difference.exit_code}"
        if case.exit_line:
            return [(case.exit_line - 1, 1, [heading])]
        return [(case.last_line, 0, [heading])]
    section = difference.section
    if section is None:
        return []
    section.is_pattern = False
    new = [section.heading(), *(_protected(line) for line in difference.lines)]
    if section.heading_line:
        return [(section.heading_line - 1, 1 + len(section.lines), new)]
    return [(case.last_line, 0, new)]


def _protected(line):
    return "\\" + line if re.match(r"\\*(===|---) ", line) else line
