"""A real console around the shell: a tmux pane of fixed size. README.md tells how cases use it."""

import os
import re
import shutil
import subprocess
import termios
import time

ROWS, COLUMNS = 30, 80
PATIENCE = 20.0
LEAST_LOOKS = 300  # on a machine that stood still time has passed, but nothing was tried
START_PATIENCE = 10.0  # a console opens in a fraction of a second, or not at all
STARTS = 3


# What tmux sends for these the emulated console takes for other keys.
SEQUENCES = {"Home": "\x1b[H", "End": "\x1b[F"}


class Failure(Exception):
    """The case did not see what it waited for."""


class Seen(tuple):
    """Parts of one row, which may stand anywhere on the screen."""

    def __new__(cls, *parts):
        return super().__new__(cls, parts)


class Console:
    FOLDER = "C:\\t\\console"

    def __init__(self, machine, socket):
        self.machine = machine
        self.socket = socket
        self.before_keys = []
        self.folder = machine.path(self.FOLDER)
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)

    def tmux(self, *arguments):
        environment = self.machine.environment() | {"TERM": "xterm-256color"}
        command = ["tmux", "-S", self.socket, "-f", "/dev/null", *arguments]
        return subprocess.run(command, env=environment, capture_output=True, text=True, check=False).stdout

    def file(self, name, *lines):
        (self.folder / name).write_bytes("".join(f"{line}\r\n" for line in lines).encode())

    def start(self, *arguments, first=None, **environment):
        """Starts the shell and waits for the first rows. A variable given as None is not set."""
        variables = {"PROMPT": "$G"} | environment
        settings = [part for name, value in variables.items() if value is not None for part in ("-e", f"{name}={value}")]
        shell = [self.machine.wine(), self.machine.PROGRAMS + "\\ORV.exe", "//Copyright=No", *arguments]
        size = ["-x", str(COLUMNS), "-y", str(ROWS)]
        for attempt in range(1, STARTS + 1):
            # The pane stays when the shell ends, so that its last screen and its exit code can be read.
            self.tmux(
                "start-server", ";", "set", "-g", "remain-on-exit", "on", ";", "set", "-g", "remain-on-exit-format", "",
                ";", "set", "-g", "status", "off", ";", "new-session", "-d", *size, *settings, "-c", str(self.folder),
                "--", *shell,
            )
            try:
                self.wait(self.takes_keys, ["a terminal in raw mode"], self.state, START_PATIENCE)
                break
            except Failure as failure:
                # Rarely the emulated console host never takes its terminal, before the
                # shell has a say. What ended or wrote something is the shell's own failure.
                if attempt == STARTS or self.rows() or self.facts("#{pane_dead}") == "1":
                    raise
                print(f"note: a console did not open; trying again\n{failure}", flush=True)
                self.close()
                self.socket += "x"
        if first or "PROMPT" not in environment:
            self.shows(*(first or [">"]))

    def takes_keys(self):
        """Keys that come before the console is ready are echoed by the terminal, and Enter becomes a line feed."""
        try:
            terminal = os.open(self.facts("#{pane_tty}"), os.O_RDONLY | os.O_NOCTTY)
        except OSError:
            return False
        try:
            return not termios.tcgetattr(terminal)[3] & (termios.ICANON | termios.ECHO)
        finally:
            os.close(terminal)

    def text(self, text):
        self.before_keys = self.rows()
        self.tmux("send-keys", "-l", "--", text)

    def keys(self, *names):
        self.before_keys = self.rows()
        for name in names:
            self.tmux("send-keys", *(["-l", SEQUENCES[name]] if name in SEQUENCES else [name]))

    def step(self, told, keys, *rows):
        """Types `keys`, names of keys in braces among them, and waits until the screen ends with the rows. The
        first may be `Seen`."""
        before = self.rows()
        try:
            for text, name in re.findall(r"([^{}]+)|\{([^}]+)\}", keys):
                self.keys(name) if name else self.text(text)
                if keys.startswith("{Escape}") and name == "Escape" and keys != "{Escape}":
                    self.ends_with(">")  # a character that follows at once would count as pressed with Alt
            self.before_keys = before
            if isinstance(rows[0], Seen):
                self.needs_change(rows[0], rows[0] if self.has_row(rows[0], before) else [])
                self.row_with(*rows[0])
                rows = rows[1:]
            if rows:
                self.ends_with(*rows)
        except Failure as failure:
            raise Failure(f"{told}: {keys}\n{failure}") from None

    def line(self, text):
        self.text(text)
        self.tmux("send-keys", "Enter")

    def rows(self):
        rows = [row.rstrip() for row in self.tmux("capture-pane", "-p").split("\n")]
        return [row for row in rows if row]

    def colors(self):
        return self.tmux("capture-pane", "-p", "-e")

    def facts(self, pattern):
        return self.tmux("display-message", "-p", pattern).rstrip("\n")

    def state(self):
        """The screen and the processes behind it."""
        pane = self.facts("#{pane_pid} #{pane_tty} #{pane_dead}")
        columns = "pid,ppid,stat,wchan:24,args"
        listing = subprocess.run(["ps", "-eo", columns], capture_output=True, text=True, check=False).stdout
        ours = [row[:120] for row in listing.split("\n") if "ORV" in row or "conhost" in row or "wineserver" in row]
        return [*self.rows(), f"pane {pane}", *ours]

    def wait(self, holds, expected, found, patience=PATIENCE):
        limit = time.monotonic() + patience
        looks = 0
        while not holds():
            looks += 1
            if time.monotonic() > limit and looks > LEAST_LOOKS:
                raise Failure(f"waited for:\n{indented(expected)}\nfound:\n{indented(found())}")
            time.sleep(0.02)

    def needs_change(self, rows, stood):
        if stood == list(rows):
            raise Failure(f"these rows stood there before the keys, and prove nothing:\n{indented(rows)}")

    def shows(self, *rows):
        self.needs_change(rows, self.before_keys)
        self.wait(lambda: self.rows() == list(rows), rows, self.rows)

    def ends_with(self, *rows):
        self.needs_change(rows, self.before_keys[-len(rows) :])
        self.wait(lambda: self.rows()[-len(rows) :] == list(rows), ["...", *rows], self.rows)

    def row_with(self, *parts):
        self.wait(lambda: self.has_row(parts, self.rows()), parts, self.rows)

    @staticmethod
    def has_row(parts, rows):
        return any(all(part in row for part in parts) for row in rows)

    def has_title(self, title):
        self.wait(lambda: self.facts("#{pane_title}") == title, [title], lambda: [self.facts("#{pane_title}")])

    def has_colors(self, sequence):
        self.wait(lambda: sequence in self.colors(), [repr(sequence)], lambda: [repr(self.colors())])

    def exits(self, code):
        state = "#{pane_dead} #{pane_dead_status}"
        self.wait(lambda: self.facts(state) == f"1 {code}", [f"exit {code}"], lambda: [self.facts(state), *self.rows()])

    def close(self):
        self.tmux("kill-server")


def indented(rows):
    return "\n".join(f"    {row}" for row in rows)
