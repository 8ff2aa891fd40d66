"""Kills the shell at random moments while it copies, moves, syncs and describes files: python3 tests/kills [ROUNDS].

Whatever the moment, each file must be whole where it was or where it goes, a target is the old file or the new one, and
what the killed shell left behind is gone after the next run. The moments are random; the seed is told with a failure.
A disk that is full in the middle of a file must cost nothing either, and the message must name what had no room; that
takes a small disk, which only root can make.
"""

import contextlib
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/runner")]

from machine import Machine  # noqa: E402

# Small files are many, and one is large enough to be hit in the middle.
SIZES = [1 + 37 * n * n for n in range(60)] + [3_000_000, 700_000]
NOT_TRIED = object()
TEXT = "what stands behind a file"


def contents(number, version):
    return (b"%s %04d " % (version, number)) * (SIZES[number] // 9) + version


class Scene:
    """A source and a target folder, on different volumes where the machine has two, some targets old already."""

    def __init__(self, machine):
        self.machine = machine
        base = machine.prefix / "drive_c" / "kills"
        other = Path("/dev/shm") if os.access("/dev/shm", os.W_OK) else base
        self.source, self.target = base / "source", other / f"orv-kills-{os.getpid()}"
        self.new = {f"f{n}.dat": contents(n, b"new") for n in range(len(SIZES))}
        self.old = {f"f{n}.dat": contents(n, b"old") for n in range(0, len(SIZES), 3)}

    def windows(self, path):
        return "Z:" + str(path).replace("/", "\\")

    def lay_out(self, leftovers=False):
        for folder, files in ((self.source, self.new), (self.target, self.old)):
            folder.mkdir(parents=True, exist_ok=True)
            for path in folder.iterdir():
                if path.name not in files and not (leftovers and path.name.startswith("~mova-")):
                    path.unlink()
            for name, data in files.items():
                path = folder / name
                if not path.exists() or path.read_bytes() != data:
                    path.write_bytes(data)
                os.utime(path, (1_600_000_000, 1_600_000_000) if files is self.new else (1_500_000_000, 1_500_000_000))

    def start(self, command, errors=subprocess.DEVNULL):
        (self.source.parent / "run.btm").write_text(command)
        words = [self.machine.wine(), self.machine.PROGRAMS + "\\ORV.exe", "/C", "run.btm"]
        return subprocess.Popen(words, env=self.machine.environment(), cwd=self.source.parent, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=errors)

    def settle(self):
        """Wine's server closes the files of a killed process, and deletes those marked for it, some time later. It
        hears of the death before it starts another process."""
        self.start("rem").wait()

    def check(self, keeps_source):
        """What is wrong, or None."""
        there = {path.name: path.read_bytes() for path in self.target.iterdir()}
        here = {path.name: path.read_bytes() for path in self.source.iterdir()}
        for name, data in self.new.items():
            copied, kept = there.get(name) == data, here.get(name) == data
            if not kept and (keeps_source or not copied):
                return f"{name} is lost: {len(here.get(name, b''))} and {len(there.get(name, b''))} of {len(data)} bytes"
            if name in there and not copied and there[name] != self.old.get(name):
                return f"{name} is half written: {len(there[name])} of {len(data)} bytes"
            if name in self.old and name not in there:
                return f"{name} is gone from the target"
        strange = [name for name in there if name not in self.new and not name.startswith("~mova-")]
        return f"strange files: {strange}" if strange else None

    def check_descriptions(self):
        lines = self.descriptions()
        return None if all(line.endswith(TEXT) for line in lines) else f"half a description: {lines[-1:]}"

    def descriptions(self):
        return [line for path in self.source.iterdir() if path.name.lower() == "descript.ion"
                for line in path.read_text().splitlines()]

    def done(self, command):
        """The part of a command's work that is done, 0 to 1."""
        if command.startswith("describe"):
            return len(self.descriptions()) / len(self.new)
        there = [name for name, data in self.new.items()
                 if (path := self.target / name).exists() and path.read_bytes() == data]
        return len(there) / len(self.new)

    def close(self):
        shutil.rmtree(self.target, ignore_errors=True)


def commands(scene):
    source, target = scene.windows(scene.source), scene.windows(scene.target)
    kept, gone = (lambda: scene.check(True)), (lambda: scene.check(False))
    described = lambda: scene.check(True) or scene.check_descriptions()  # noqa: E731
    return [
        (f"copy /q {source}\\*.dat {target}\\", kept),
        (f"move /q {source}\\*.dat {target}\\", gone),
        (f"sync /q /w {source} {target}", kept),
        (f'describe /q /d"{TEXT}" {source}\\*.dat', described),
    ]


class Moments:
    """When to kill: at random, between the times that proved too early and too late."""

    def __init__(self, chance, latest):
        self.chance = chance
        self.earliest, self.latest = 0.0, latest
        self.hits = 0

    def choose(self):
        self.moment = self.chance.uniform(self.earliest, self.latest)
        return self.moment

    def learn(self, done):
        """From the part of the work that was done, 0 to 1."""
        if done == 0:
            self.earliest += (self.moment - self.earliest) / 2
        elif done == 1:
            self.latest -= (self.latest - self.moment) / 2
        else:
            self.hits += 1


def run_rounds(scene, rounds, seed):
    chance = random.Random(seed)
    for command, check in commands(scene):
        for _ in range(2):  # the first one may have to start the server
            scene.lay_out()
            started = time.monotonic()
            scene.start(command).wait()
        moments = Moments(chance, time.monotonic() - started)
        for _ in range(rounds):
            scene.lay_out()
            shell = scene.start(command)
            time.sleep(moments.choose())
            shell.kill()
            shell.wait()
            scene.settle()
            if wrong := check():
                return f"{command}: {wrong} (seed {seed})"
            moments.learn(scene.done(command))
        print(f"{command.split()[0]}: {moments.hits} of {rounds} killed in the middle")
        scene.lay_out(leftovers=True)
        scene.start(command).wait()
        if left := [path.name for path in scene.target.iterdir() if path.name.startswith("~mova-")]:
            return f"{command}: {left} are left behind"
        if wrong := check() or (scene.done(command) < 1 and "not all was done"):
            return f"{command}, not killed: {wrong}"
    return None


def contents_below(folder):
    return {path.name: path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def run_on_full(scene, command, target):
    """What is wrong after a command that had no room, or None. MOVEDIR may have moved what had some."""
    errors = scene.source.parent / "errors"
    # A pipe would be held open by the services that the first process starts.
    with errors.open("wb") as file:
        shell = scene.start(command, file)
        shell.wait()
    told = errors.read_text(errors="replace")
    there, here = contents_below(target), contents_below(scene.source)
    there.pop("filler", None)
    wrong = [name for name, data in there.items() if data not in (b"old", scene.new.get(name))]
    lost = [name for name, data in scene.new.items() if data not in (here.get(name), there.get(name))]
    if wrong or lost or shell.returncode == 0 or f'Disk full. "{scene.windows(target)}' not in told:
        return f"{command} on a full disk ended with {shell.returncode}, {told!r}: wrong {wrong}, lost {lost}"
    return None


def fill_disk(scene):
    """What is wrong, or None."""
    disk = Path(tempfile.mkdtemp(prefix="orv-kills-"))
    mount = ["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", disk]
    if subprocess.run(mount, stderr=subprocess.DEVNULL, check=False).returncode:
        disk.rmdir()
        print("note: no small disk can be made here; nothing was tried on a full one")
        return NOT_TRIED
    try:
        (disk / "f61.dat").write_bytes(b"old")
        source, target = scene.windows(scene.source), scene.windows(disk)
        large, half = f"{source}\\f60.dat", f"{source}\\f61.dat"
        for command in (f"copy /q {large} {target}\\f61.dat", f"copy /q {half}+{half} {target}\\f61.dat",
                        f"move /q {large} {target}\\f61.dat", f"movedir /q {source} {target}\\new",
                        f"sync /q {source} {target}", f'describe /q /d"{TEXT}" {target}\\f61.dat'):
            if command.startswith("describe"):
                with open(disk / "filler", "wb", buffering=0) as filler, contextlib.suppress(OSError):
                    while filler.write(bytes(4096)):
                        pass
            scene.lay_out()
            if wrong := run_on_full(scene, command, disk):
                return wrong
            shutil.rmtree(disk / "new", ignore_errors=True)
    finally:
        subprocess.run(["umount", disk], check=False)
        disk.rmdir()
    return None


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 25
    with Machine(ROOT, ROOT / "build/mingw/bin") as machine, contextlib.closing(Scene(machine)) as scene:
        outcomes = [fill_disk(scene), run_rounds(scene, rounds, random.randrange(10**6))]
    failures = [outcome for outcome in outcomes if outcome and outcome is not NOT_TRIED]
    for failure in failures:
        print(f"FAILED kills: {failure}")
    print(f"{outcomes.count(None)} passed, {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
