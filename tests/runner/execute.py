"""Runs one case on a machine and compares what came out with what the case expects."""

import difflib
import shutil
from dataclasses import dataclass, field

import tokens

# What a console-less shell writes to files and pipes.
OUTPUT_ENCODING = "cp437"
ENVIRONMENT = {
    "COMSPEC": "{{orv}}",
    "PATH": "{{programs}}\\helpers;C:\\windows\\system32;C:\\windows",
    "SystemDrive": "C:",
    "SystemRoot": "C:\\windows",
    "TEMP": "{{temp}}",
    "TMP": "{{temp}}",
}


@dataclass
class Difference:
    """One expectation that was not met, with what would meet it."""

    what: str
    report: list
    section: object = None  # the section to rewrite, None when it is not about a section
    lines: list = field(default_factory=list)
    exit_code: int | None = None


@dataclass
class Settings:
    """What a whole run shares."""

    version: str
    timeout: float
    shell: str | None = None  # another program in place of ORV
    keep: bool = False  # leave the folders of failed cases for a look


class Execution:
    """One run of one case in folders of its own: C:\\t\\NNNN is the current one, C:\\s\\NNNN holds the rest."""

    def __init__(self, machine, settings, case, number):
        self.machine = machine
        self.settings = settings
        self.case = case
        self.folder = f"C:\\t\\{number:04}"
        self.side = f"C:\\s\\{number:04}"
        self.script = f"{self.side}\\script.{case.script_type}"
        self.shell = settings.shell or machine.PROGRAMS + "\\ORV.exe"
        self.places = {
            "cwd": self.folder,
            "script": self.script,
            "scriptdir": self.side,
            "temp": self.side + "\\temp",
            "ini": self.side + "\\case.ini",
            "drive": "C:",
            "drive2": "D:",
            "orv": self.shell,
            "programs": machine.PROGRAMS,
            "version": settings.version,
        }

    def run(self):
        """Returns the differences; none means that the case passed."""
        self.lay_out()
        differences = self.compare(self.machine.run(self.request(), self.timeout()))
        if not (differences and self.settings.keep):
            self.clear()
        return differences

    def timeout(self):
        return self.case.timeout or self.settings.timeout

    def path(self, name, base=None):
        """A file of the case: relative to its current folder unless it has a drive."""
        name = tokens.fill_in(name, self.places)
        return self.machine.path(name if name[1:2] == ":" else f"{base or self.folder}\\{name}")

    # Before the run

    def lay_out(self):
        case = self.case
        for folder in (self.folder, self.side, self.places["temp"]):
            self.machine.path(folder).mkdir(parents=True, exist_ok=True)
        for folder in case.folders:
            self.path(folder).mkdir(parents=True, exist_ok=True)
        for section in case.files:
            self.write(self.path(section.name), section, "utf-8")
        if case.script is not None:
            self.write(self.machine.path(self.script), case.script, case.script_encoding)
        lines = case.ini if case.echo else ["BatchEcho=No", *case.ini]
        ini = "".join(tokens.fill_in(line, self.places) + "\r\n" for line in lines)
        self.machine.path(self.places["ini"]).write_bytes(ini.encode())
        if case.stdin is not None:
            self.write(self.path("stdin", self.side), case.stdin, "utf-8")

    def write(self, path, section, default_encoding):
        text = tokens.join_lines(section.lines, section.line_end, lambda line: tokens.fill_in(line, self.places))
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(section.encode(text, default_encoding))

    def request(self):
        case = self.case
        request = [("program", self.shell), ("command", self.command_line()), ("cwd", self.folder)]
        request += [("stdout", self.side + "\\stdout"), ("stderr", self.side + "\\stderr")]
        if case.stdin is not None:
            request.append(("stdin", self.side + "\\stdin"))
            if "via" in case.stdin.options:
                request.append(("stdin-pipe", "1"))
        if case.console:
            request.append(("console", "1"))
        return request + [("env", f"{name}={value}") for name, value in self.environment()]

    def command_line(self):
        case = self.case
        parts = [f'"{self.shell}"']
        if self.settings.shell is None:
            parts.append("@" + self.places["ini"])
        parts.append(tokens.fill_in(case.host, self.places))
        if case.script is not None:
            parts += ["/C", self.script, tokens.fill_in(case.args, self.places)]
        elif case.commands is not None:
            parts += ["/C", tokens.fill_in(case.commands, self.places)]
        return " ".join(part for part in parts if part)

    def environment(self):
        values = {name.upper(): (name, value) for name, value in ENVIRONMENT.items()}
        for name, value in self.case.environment:
            values[name.upper()] = (name, value)
        filled = [(name, tokens.fill_in(value, self.places)) for name, value in values.values()]
        return sorted((pair for pair in filled if pair[1]), key=lambda pair: pair[0].upper())

    # After the run

    def compare(self, code):
        case = self.case
        differences = []
        if code is None:
            return [Difference("time limit", [f"still running after {self.timeout():g} s", *self.output_so_far()])]
        streams = [("stdout", case.stdout), ("stderr", case.stderr)]
        for name, section in streams:
            data = self.machine.path(f"{self.side}\\{name}").read_bytes()
            differences += self.compare_text(name, section, data, OUTPUT_ENCODING)
        for section in case.files_after:
            path = self.path(section.name)
            if not path.is_file():
                differences.append(Difference(section.name, ["the file does not exist"]))
            else:
                differences += self.compare_text(section.name, section, path.read_bytes(), OUTPUT_ENCODING)
        for name in case.no_files:
            if self.path(name).exists():
                differences.append(Difference(name, ["the file should not exist"]))
        if case.exit_code is not None and code != case.exit_code:
            report = [f"expected {_code(case.exit_code)}, got {_code(code)}"]
            differences.append(Difference("exit code", report, exit_code=code))
        return differences

    def output_so_far(self):
        lines = []
        for name in ("stdout", "stderr"):
            data = self.machine.path(f"{self.side}\\{name}").read_bytes()
            text = data.decode(OUTPUT_ENCODING, "surrogateescape")
            lines += [f"{name}: {line}" for line in tokens.visible_lines(text)[-20:]]
        return lines

    def compare_text(self, what, section, data, default_encoding):
        actual = section.decode(data, default_encoding)
        if section.is_pattern:
            if tokens.expected_pattern(section.lines, self.places, section.line_end).fullmatch(actual):
                return []
        elif tokens.expected_text(section.lines, self.places, section.line_end) == actual:
            return []
        lines = tokens.visible_lines(actual, section.line_end, self.places)
        report = difflib.unified_diff(section.lines, lines, "expected", "actual", lineterm="", n=3)
        return [Difference(what, list(report)[2:], section, lines)]

    def clear(self):
        for folder in (self.folder, self.side):
            shutil.rmtree(self.machine.path(folder), ignore_errors=True)
        for path in (self.machine.prefix / "drive_d").iterdir():
            if path.is_dir():
                shutil.rmtree(path, ignore_errors=True)
            else:
                path.unlink()


def _code(code):
    return f"{code} ({code:#010x})" if code >= 2**31 else str(code)
