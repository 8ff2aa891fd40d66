"""Where cases run: a Wine prefix per worker with one warm server and one starter that starts all of its shells."""

import contextlib
import fcntl
import itertools
import os
import queue
import shutil
import subprocess
import tempfile
import threading
from pathlib import Path

WINE_FOLDERS = Path("/usr/lib/wine")


def wine_program(debian_name, other_name):
    path = WINE_FOLDERS / debian_name
    return str(path) if path.exists() else other_name


class MachineError(Exception):
    """The machinery itself failed, not a case."""


class Machine:
    """One worker's Windows: a prefix with C: and D:, the programs under test, and a starter.

    The programs stand in C:\\orv, helpers below it, as hard links that are made anew for each run. Short and
    constant paths keep expectations the same on every machine.
    """

    PROGRAMS = "C:\\orv"

    def __init__(self, root, binaries):
        self.root = Path(root)
        self.prefix = self.take_prefix(self.root / "build" / "wine")
        self.starter = None
        self.answers = None
        self.prepare(Path(binaries))

    def take_prefix(self, folder):
        """The first prefix that no other worker has, in this run or in another one at the same time."""
        folder.mkdir(parents=True, exist_ok=True)
        for number in itertools.count():
            self.lock = (folder / f"worker{number}.lock").open("w")
            try:
                fcntl.flock(self.lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
                return folder / f"worker{number}"
            except BlockingIOError:
                self.lock.close()

    def __enter__(self):
        self.keep_server()
        return self

    def __exit__(self, *_):
        self.close()

    def prepare(self, binaries):
        subprocess.run([self.root / "tools" / "wine_prefix", self.prefix], check=True)
        for name in ("orv", "t", "s"):
            shutil.rmtree(self.prefix / "drive_c" / name, ignore_errors=True)
        self.make_second_drive()
        drive = self.prefix / "dosdevices" / "d:"
        if not drive.is_symlink():
            drive.symlink_to("../drive_d")
        for source in [*binaries.glob("*.exe"), *binaries.glob("*.dll"), *binaries.glob("helpers/*.exe")]:
            target = self.prefix / "drive_c" / "orv" / source.relative_to(binaries)
            target.parent.mkdir(parents=True, exist_ok=True)
            os.link(source, target)

    def make_second_drive(self):
        """D:, on another volume than C: where the machine has one at hand."""
        self.remove_second_drive()
        folder = self.prefix / "drive_d"
        memory = Path("/dev/shm")
        if os.access(memory, os.W_OK) and memory.stat().st_dev != self.prefix.stat().st_dev:
            folder.symlink_to(tempfile.mkdtemp(prefix="orv-drive-", dir=memory))
            with contextlib.suppress(OSError):
                os.setxattr(folder, "user.DOSATTRIB", b"0x10")  # where Wine keeps what is hidden
                return
            self.remove_second_drive()
        folder.mkdir()

    def remove_second_drive(self):
        folder = self.prefix / "drive_d"
        shutil.rmtree(folder.resolve(), ignore_errors=True)
        if folder.is_symlink():
            folder.unlink()

    def path(self, windows_path):
        """The same place as this side of the machine names it."""
        drive, rest = windows_path[0].lower(), windows_path[3:]
        return self.prefix / f"drive_{drive}" / rest.replace("\\", "/")

    def environment(self):
        # Wine takes the locale and the time zone from here.
        kept = {name: os.environ[name] for name in ("PATH", "HOME", "USER", "LOGNAME") if name in os.environ}
        return kept | {"WINEPREFIX": str(self.prefix), "WINEDEBUG": "-all", "LC_ALL": "C.UTF-8", "TZ": "UTC"}

    @staticmethod
    def wine():
        return wine_program("wine64", "wine")

    def tell_server(self, switch):
        server = wine_program("wineserver64", "wineserver")
        subprocess.run([server, switch], env=self.environment(), stderr=subprocess.DEVNULL, check=False)

    def keep_server(self):
        """The server must not leave between two cases of a slow machine."""
        self.tell_server("-p60")

    def end_server(self):
        """Ends the prefix's server and whatever runs there."""
        self.tell_server("-k")

    def start(self):
        self.keep_server()
        self.starter = subprocess.Popen(
            [self.wine(), self.PROGRAMS + "\\helpers\\starter.exe"],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            env=self.environment(),
        )
        self.answers = queue.Queue()
        threading.Thread(target=self.read_answers, args=(self.starter.stdout, self.answers), daemon=True).start()

    @staticmethod
    def read_answers(stream, answers):
        for line in stream:
            answers.put(line.decode().strip())
        answers.put(None)

    def run(self, request, timeout):
        """Hands a request (key and value pairs) to the starter. Returns the exit code, or None at the time limit."""
        if self.starter is None:
            self.start()
        lines = [f"{key}={_escape(value)}\n" for key, value in request]
        try:
            self.starter.stdin.write("".join([*lines, f"timeout={int(timeout * 1000)}\n", "run\n"]).encode())
            self.starter.stdin.flush()
            # The starter keeps the time; this limit is for a starter that hangs itself.
            answer = self.answers.get(timeout=timeout + 30)
        except (queue.Empty, OSError):
            answer = None
        if answer is None:
            self.stop()
            raise MachineError("the starter has gone or hangs")
        if answer == "timeout":
            return None
        if answer.startswith("exit "):
            return int(answer[5:])
        raise MachineError(answer)

    def close(self):
        self.stop()
        self.end_server()
        self.remove_second_drive()
        self.lock.close()

    def stop(self):
        """Ends the starter and, with it, the prefix's server and whatever else runs there."""
        if self.starter is None:
            return
        self.starter.kill()
        self.starter.wait()
        self.starter = None
        self.end_server()


def _escape(value):
    return value.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r")
