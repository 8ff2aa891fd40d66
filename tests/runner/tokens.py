"""Tokens of golden scripts: names in double braces that stand for places, invisible characters and patterns.

Text is compared as characters, never as bytes: bytes that their encoding does not know become lone surrogates
(U+DC80 to U+DCFF), as Python's "surrogateescape" makes them, and are shown as {{x+HH}}.
"""

import re

TOKEN = re.compile(r"\{\{(.*?)\}\}", re.DOTALL)

CHARACTERS = {
    "bell": "\a",
    "bs": "\b",
    "tab": "\t",
    "lf": "\n",
    "vt": "\v",
    "ff": "\f",
    "cr": "\r",
    "esc": "\x1b",
    "nul": "\0",
    "sp": " ",
    "nbsp": "\xa0",
    "bom": "\ufeff",
    "open": "{{",
    "empty": "",
}

# At the end of the last line: it has no line end.
NO_END = "{{noend}}"

_VISIBLE = {char: name for name, char in CHARACTERS.items() if len(char) == 1 and name != "sp"}


class TokenError(Exception):
    """A case uses a token that does not exist."""


def character(name):
    """The character that a token's name stands for, or None."""
    if name in CHARACTERS:
        return CHARACTERS[name]
    match = re.fullmatch(r"u\+([0-9A-Fa-f]{4,6})", name)
    if match:
        return chr(int(match[1], 16))
    match = re.fullmatch(r"x\+([89A-Fa-f][0-9A-Fa-f])", name)
    if match:
        return chr(0xDC00 + int(match[1], 16))
    return None


def lookup(name, places):
    if name in places:
        return places[name]
    return character(name)


def fill_in(text, places):
    """Replaces the known tokens in what a case hands to the shell; other double braces stay as they are."""

    def value(match):
        found = lookup(match[1], places)
        return match[0] if found is None else found

    return TOKEN.sub(value, text)


def expected_text(lines, places, line_end):
    """What a literal expectation stands for."""

    def value(match):
        found = lookup(match[1], places)
        if found is None:
            raise TokenError(f"there is no token {{{{{match[1]}}}}}")
        return found

    return join_lines(lines, line_end, lambda line: TOKEN.sub(value, line))


def expected_pattern(lines, places, line_end):
    """The regular expression of an expectation marked with "~": what is no token inside {{ }} is a pattern."""

    def one_line(line):
        parts = []
        end = 0
        for match in TOKEN.finditer(line):
            parts.append(re.escape(line[end : match.start()]))
            found = lookup(match[1], places)
            parts.append(f"(?:{match[1]})" if found is None else re.escape(found))
            end = match.end()
        parts.append(re.escape(line[end:]))
        return "".join(parts)

    try:
        return re.compile(join_lines(lines, line_end, one_line))
    except re.error as error:
        raise TokenError(f"the pattern is not valid: {error}") from error


def join_lines(lines, line_end, convert):
    """One text of lines; each of them is ended, the last one unless it says {{noend}}."""
    if not lines:
        return ""
    if lines[-1].endswith(NO_END):
        return line_end.join(convert(line) for line in [*lines[:-1], lines[-1].removesuffix(NO_END)])
    return "".join(convert(line) + line_end for line in lines)


def visible_lines(text, line_end="\r\n", places=None):
    """Actual output as the lines of a case file that expect it; places are put back as tokens."""
    if text == "":
        return []
    lines = [_visible_line(line, places or {}) for line in text.split(line_end)]
    if lines[-1] == "":
        return lines[:-1]
    lines[-1] += NO_END
    return lines


def _visible_line(line, places):
    shown = "{{open}}".join(_visible_part(part, places) for part in line.split("{{"))
    return shown[:-1] + "{{sp}}" if shown.endswith(" ") else shown


def _visible_part(text, places):
    shown = []
    for char in text:
        code = ord(char)
        if char in _VISIBLE:
            shown.append("{{" + _VISIBLE[char] + "}}")
        elif 0xDC80 <= code <= 0xDCFF:
            shown.append(f"{{{{x+{code - 0xDC00:02X}}}}}")
        elif code < 0x20 or 0x7F <= code < 0xA0 or 0xD800 <= code <= 0xDFFF:
            shown.append(f"{{{{u+{code:04X}}}}}")
        else:
            shown.append(char)
    visible = "".join(shown)
    for name, place in sorted(places.items(), key=lambda item: -len(item[1])):
        if len(place) > 2:
            visible = re.sub(re.escape(place), "{{" + name + "}}", visible, flags=re.IGNORECASE)
    return visible
