"""Reads golden-script files: cases, their headers and their sections. README.md describes the format."""

import codecs
import re
from dataclasses import dataclass, field

TYPES = ("btm", "bat", "cmd")
# Names as cases write them. A byte order mark is text like any other: {{bom}}.
ENCODINGS = {"utf-16": "utf-16-le", "utf-16be": "utf-16-be"}
LINE_ENDS = {"crlf": "\r\n", "lf": "\n"}


class CaseError(Exception):
    """A case file that cannot be understood; says where."""


@dataclass
class Section:
    """Lines of a case with what its heading says about them. Lines start and end are counted in the file."""

    kind: str
    name: str = ""
    is_pattern: bool = False
    options: dict = field(default_factory=dict)
    lines: list = field(default_factory=list)
    heading_line: int = 0  # 0: the case leaves this section out

    @property
    def line_end(self):
        return LINE_ENDS[self.options.get("eol", "crlf")]

    def encode(self, text, default_encoding):
        return text.encode(*self.codec(default_encoding))

    def decode(self, data, default_encoding):
        codec = self.codec(default_encoding)
        if codec[1] == "surrogatepass" and len(data) % 2:
            data += b"\0"
        return data.decode(*codec)

    def codec(self, default_encoding):
        """Name and error handling, chosen so that any bytes and any units survive both ways."""
        name = self.options.get("encoding", default_encoding)
        if name in ENCODINGS:
            return ENCODINGS[name], "surrogatepass"
        return name, "surrogateescape"

    def heading(self):
        parts = ["---", self.kind, self.name]
        parts += [f"{key}={value}" for key, value in self.options.items()]
        parts += ["~"] if self.is_pattern else []
        return " ".join(part for part in parts if part)


@dataclass
class Case:
    """One named case. Everything is as written; tokens are filled in when it runs."""

    path: str
    name: str
    line: int
    args: str = ""
    host: str = ""
    commands: str | None = None
    script_type: str = "btm"
    script_encoding: str = "utf-8"
    ini: list = field(default_factory=list)
    environment: list = field(default_factory=list)  # pairs; an empty value takes the variable away
    folders: list = field(default_factory=list)
    files: list = field(default_factory=list)  # sections
    echo: bool = False  # batch files show their lines
    console: bool = False
    timeout: float | None = None
    known_gap: str = ""
    script: Section | None = None
    stdin: Section | None = None
    stdout: Section = field(default_factory=lambda: Section("stdout"))
    stderr: Section = field(default_factory=lambda: Section("stderr"))
    exit_code: int | None = 0  # None: any
    exit_line: int = 0
    files_after: list = field(default_factory=list)
    no_files: list = field(default_factory=list)
    last_line: int = 0  # where another section of the case would follow
    is_reference: bool = False  # made of the reference or of help, whose text nobody rewrites

    @property
    def title(self):
        return f"{self.path}:{self.line}: {self.name}"


def parse(path, text):
    """All cases of a file, in order. Raises CaseError."""
    return _Parser(path, text).cases()


class _Parser:
    def __init__(self, path, text):
        self.path = path
        self.lines = text.splitlines()
        self.at = 0

    def fail(self, message, line=None):
        raise CaseError(f"{self.path}:{line or self.at}: {message}")

    def cases(self):
        found = []
        while self.at < len(self.lines):
            line = self.lines[self.at]
            self.at += 1
            if line.startswith("=== "):
                found.append(self.case(line[4:].strip()))
            elif line.strip() and not line.startswith("#"):
                self.fail("expected a comment or a case")
        names = set()
        for case in found:
            if case.name in names:
                self.fail(f'a second case "{case.name}"', case.line)
            names.add(case.name)
        return found

    def case(self, name):
        case = Case(self.path, name, self.at)
        while self.at < len(self.lines) and not self.is_mark():
            line = self.lines[self.at]
            self.at += 1
            if line.strip() and not line.startswith("#"):
                self.header(case, line)
        case.last_line = self.at
        while self.lines[case.last_line - 1].strip() == "":
            case.last_line -= 1
        while self.at < len(self.lines) and self.lines[self.at].startswith("--- "):
            self.section(case)
        if case.script is not None and case.commands is not None:
            self.fail("a case has a script or commands, not both", case.line)
        return case

    def is_mark(self):
        return self.lines[self.at].startswith(("=== ", "--- "))

    def header(self, case, line):
        match = re.match(r"env ([^=]+)=(.*)", line)
        if match:
            case.environment.append((match[1], match[2]))
            return
        match = re.match(r"file (.+?): (.*)", line)
        if match:
            case.files.append(Section("file", match[1], lines=[match[2]]))
            return
        match = re.match(r"folder (.+)", line)
        if match:
            case.folders.append(match[1].strip())
            return
        match = re.match(r"([a-z-]+):(?: (.*))?", line)
        if not match:
            self.fail(f"not a header: {line}")
        self.named_header(case, match[1], match[2] or "")

    def named_header(self, case, key, value):
        if key in ("args", "host", "commands"):
            setattr(case, key, value)
        elif key == "ini":
            case.ini.append(value)
        elif key == "stdin":
            case.stdin = Section("stdin", lines=[value])
        elif key == "type" and value in TYPES:
            case.script_type = value
        elif key == "encoding":
            self.check_encoding(value)
            case.script_encoding = value
        elif key in ("console", "echo") and value in ("yes", "no"):
            setattr(case, key, value == "yes")
        elif key == "timeout" and re.fullmatch(r"[0-9.]+", value):
            case.timeout = float(value)
        elif key == "known-gap" and value:
            case.known_gap = value
        else:
            self.fail(f"not a header: {key}: {value}")

    def section(self, case):
        section = self.section_heading()
        self.at += 1
        while self.at < len(self.lines) and not self.is_mark():
            section.lines.append(self.lines[self.at].removeprefix("\\") if self.is_protected() else self.lines[self.at])
            self.at += 1
        at_end = self.at == len(self.lines) or self.lines[self.at].startswith("=== ")
        if at_end and section.lines and section.lines[-1] == "":
            section.lines.pop()
        case.last_line = section.heading_line + len(section.lines)
        self.place(case, section)

    def is_protected(self):
        return re.match(r"\\+(===|---) ", self.lines[self.at]) is not None

    def section_heading(self):
        words = self.lines[self.at].split()[1:]
        if not words:
            self.fail("a section without a name", self.at + 1)
        section = Section(words.pop(0), heading_line=self.at + 1)
        while words and re.fullmatch(r"~|(encoding|eol|via)=.+", words[-1]):
            key, _, value = words.pop().partition("=")
            if key == "~":
                section.is_pattern = True
            else:
                section.options[key] = value
        section.options = dict(reversed(section.options.items()))
        if section.options.get("eol", "lf") not in LINE_ENDS or section.options.get("via", "pipe") != "pipe":
            self.fail("not an option of a section", self.at + 1)
        self.check_encoding(section.options.get("encoding", "utf-8"))
        section.name = " ".join(words)
        return section

    def check_encoding(self, name):
        try:
            codecs.lookup(ENCODINGS.get(name, name))
        except LookupError:
            self.fail(f"an unknown encoding: {name}", self.at + 1)

    def place(self, case, section):
        kind, named = section.kind, section.name != ""
        where = section.heading_line
        if kind in ("script", "stdin", "stdout", "stderr") and not named:
            before = getattr(case, kind)
            if before is not None and before.heading_line:
                self.fail(f"a second section {kind}", where)
            setattr(case, kind, section)
        elif kind == "ini" and not named:
            case.ini += section.lines
        elif kind == "exit" and re.fullmatch(r"-?\d+|0x[0-9A-Fa-f]+", section.name):
            case.exit_code = int(section.name, 0) % 2**32
            case.exit_line = where
            self.no_lines(section)
        elif kind == "file" and named:
            case.files.append(section)
        elif kind == "file-after" and named:
            case.files_after.append(section)
        elif kind == "no-file" and named:
            case.no_files.append(section.name)
            self.no_lines(section)
        else:
            self.fail(f"not a section: {self.lines[where - 1]}", where)

    def no_lines(self, section):
        if any(line.strip() for line in section.lines):
            self.fail(f"a section {section.kind} has no lines", section.heading_line + 1)
