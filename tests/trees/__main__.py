"""Random file commands compared with a model: python3 tests/trees [COMMANDS [SEED]].

Each command works on two small trees of its own, on one volume or on two. Afterwards both must hold what the model
says: contents, times, marks and descriptions. The seed is told with a failure.
"""

import copy
import os
import random
import shutil
import subprocess
import sys
import time
from pathlib import Path

import model
from model import HIDDEN, PLAIN, READ_ONLY, Tree

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/runner")]

from machine import Machine  # noqa: E402

NAMES = ["a.txt", "ab.txt", "b.c", "bb.c", "c", "d.e.f", "Long Name.txt", "x&y.txt", "100%.c", "a^b.txt", "z(1).c",
         "it's.txt", "semi;x.c", "\u00fcn\u00ef.txt", "n#1.c", "{b}.txt", "=eq.c", "@at.txt", "-m.c", "!ex.txt", "s2"]
FOLDERS = ["s1", "s2", "s 3", "sub.d"]
PATTERNS = ["*", "*.txt", "*.c", "a*", "?b*", "*.*", "b*.c", "*1*", "z*"]
NOTES = "DESCRIPT.ION"
FIRST = 1_600_000_000  # the oldest time of a file
MARK = "user.DOSATTRIB"  # where Wine keeps what the file system has no place for


def grow(dice, marks):
    tree, folders = Tree(), [""]
    for _ in range(dice.randrange(4)):
        above = dice.choice(folders)
        if above.count("/") < 2:
            folders.append(f"{above}/{dice.choice(FOLDERS)}".lstrip("/"))
    for folder in folders:
        tree.add_folder(folder)
    for _ in range(dice.randrange(1, 8)):
        name = f"{dice.choice(folders)}/{dice.choice(NAMES)}".lstrip("/")
        if name in tree.folders:
            continue
        contents = str(dice.randrange(10**6)) * dice.randrange(1, 4)
        tree.files[name] = (contents, FIRST + dice.randrange(5) * 1000, dice.choice([PLAIN] * 4 + marks))
        if HIDDEN in marks and dice.random() < 0.4:  # a description file is hidden
            tree.notes[name] = f"{dice.choice(['first', 'two words & %more', 'x' * 60])} {dice.randrange(99)}"
    return tree


def write(tree, root):
    for folder in tree.folders:
        (root / folder).mkdir(parents=True, exist_ok=True)
    for name, text in tree.notes.items():
        last = name.rpartition("/")[2]
        path = root / model.folder_of(name) / NOTES
        with path.open("a", encoding="cp437", newline="\r\n") as notes:
            notes.write((f'"{last}"' if " " in last else last) + f" {text}\n")
        os.setxattr(path, MARK, b"0x2")
    for name, (contents, written, mark) in tree.files.items():
        path = root / name
        path.write_text(contents)
        os.utime(path, (written, written))
        if mark == HIDDEN:
            os.setxattr(path, MARK, b"0x2")
        if mark == READ_ONLY:
            path.chmod(0o444)


def mark_of(path):
    try:
        if int(os.getxattr(path, MARK), 16) & 2:
            return HIDDEN
    except OSError:
        pass
    return PLAIN if path.stat().st_mode & 0o222 else READ_ONLY


def read(root):
    tree = Tree()
    tree.folders = {str(path.relative_to(root)) for path in root.rglob("*") if path.is_dir()}
    if root.is_dir():
        tree.folders.add("")
    for path in root.rglob("*"):
        name = str(path.relative_to(root))
        if path.name.upper() == NOTES:
            for line in path.read_text(encoding="cp437").splitlines():
                file, _, text = line[1:].partition('" ') if line.startswith('"') else line.partition(" ")
                tree.notes[f"{model.folder_of(name)}/{file}".lstrip("/")] = text
        elif path.is_file():
            tree.files[name] = (path.read_text(), int(path.stat().st_mtime), mark_of(path))
    return tree


def selection(dice):
    """Ranges for some of the commands, and what they pick."""
    kind, no = dice.choice(["", "", "", "d", "s", "!"]), dice.choice(["", "!"])
    low, high = sorted(dice.sample(range(30), 2))
    if kind == "d":
        times = [FIRST + end % 6 * 1000 for end in (low, high)]
        ends = [time.strftime("%Y-%m-%d@%H:%M:%S", time.localtime(end)) for end in times]
        return f"/{no}[d{','.join(ends)}] ", lambda _, file: (min(times) <= file[1] <= max(times)) != bool(no)
    if kind == "s":
        return f"/{no}[s{low},{high}] ", lambda _, file: (low <= len(file[0]) <= high) != bool(no)
    if kind == "!":
        patterns = dice.sample(PATTERNS[1:], 2)
        return f"/{no}[!{' '.join(patterns)}] ", lambda name, _: bool(no) == any(
            model.matches(pattern, name) for pattern in patterns)
    return "", model.everything


def choose(dice, first, second, names, marks):
    """A command line, after whose switches nothing is said, and the trees changed as the model says."""
    def some(letters, *others):
        return "".join(letter for letter in letters if dice.random() < 0.35) + dice.choice(["", *others])

    kind = dice.choice(["copy", "move", "del", "sync", "copydir", "movedir", "ren", "touch", "attrib"])
    pattern, (ranges, picks) = dice.choice(PATTERNS), selection(dice)
    one, two = names
    if kind in ("copy", "move"):
        switches = some("suhz", "o", "c")
        model.transfer(first, second, pattern, switches, kind == "move", picks)
        operands = f"{one}\\{pattern} {two}\\"
    elif kind == "del":
        switches = some("szf")
        model.delete(first, pattern, switches, picks)
        operands = f"/y {one}\\{pattern}"
    elif kind == "sync":
        switches = some("wfz") if dice.random() < 0.7 else "2" + some("z")
        model.sync(first, second, switches)
        ranges, operands = "", f"{one} {two}"
    elif kind == "ren":
        extension = dice.choice(["bak", "txt", "c"])
        switches = ""
        model.rename(first, pattern, extension, picks)
        operands = f"{one}\\{pattern} *.{extension}"
    elif kind == "touch":
        switches, when = some("sf"), FIRST + dice.randrange(9) * 60
        model.touch(first, pattern, switches, when, picks)
        operands = time.strftime("/d%Y-%m-%d /t%H:%M:%S ", time.localtime(when)) + f"{one}\\{pattern}"
    elif kind == "attrib":
        change, new = dice.choice([("-r -h", PLAIN), ("+r -h", READ_ONLY), ("-r +h", HIDDEN)][: 1 + len(set(marks))])
        switches = some("s")
        model.mark(first, pattern, switches, new, picks)
        operands = f"{change} {one}\\{pattern}"
    else:
        ranges = ""
        switches = some("uz", "o", "c")
        model.transfer_folder(first, second, switches, kind == "movedir")
        operands = f"{one} {two}"
    return f"{kind} /q " + "".join(f"/{letter} " for letter in switches) + ranges + operands


class Scene:
    def __init__(self, machine, seed):
        self.machine = machine
        self.dice = random.Random(seed)
        self.places = ["C:\\trees", "D:\\trees"]
        for place in self.places:
            shutil.rmtree(machine.path(place), ignore_errors=True)
            machine.path(place).mkdir()
        self.marks = [READ_ONLY] + [HIDDEN] * all(self.takes_marks(place) for place in self.places)

    def takes_marks(self, place):
        try:
            os.setxattr(self.machine.path(place), MARK, b"0x10")
        except OSError:
            return False
        return True

    def run(self, count):
        """What is wrong, one text for each command."""
        jobs, lines = [], ["@echo off"]
        for number in range(count):
            names = [f"C:\\trees\\{number}a", f"{self.dice.choice(self.places)}\\{number}b"]
            trees = [grow(self.dice, self.marks) for _ in names]
            for tree, name in zip(trees, names):
                write(tree, self.machine.path(name))
            before = copy.deepcopy(trees)
            line = choose(self.dice, *trees, names, self.marks)
            if self.dice.random() < 0.08:
                line, trees = line.replace("/q", "/q /n", 1), before
            jobs.append((line, names, trees, before))
            lines.append(line)
        script = self.machine.path("C:\\trees\\run.btm")
        script.write_text("\n".join(lines))
        words = [self.machine.wine(), self.machine.PROGRAMS + "\\ORV.exe", "/C", "C:\\trees\\run.btm"]
        subprocess.run(words, env=self.machine.environment(), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False)
        return [wrong for job in jobs if (wrong := self.compare(*job))]

    def compare(self, line, names, expected, before):
        found = [read(self.machine.path(name)) for name in names]
        for tree in found if "/w" in line else []:
            # A description file that stays with protected files may still tell of the others.
            tree.notes = {name: text for name, text in tree.notes.items() if name in tree.files or "/" not in name}
        if found == expected:
            return None
        states = zip(("before", "expected", "found"), (before, expected, found))
        return line + "".join(f"\n  {when}: {[tree.__dict__ for tree in trees]}" for when, trees in states)


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 150
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(10**6)
    with Machine(ROOT, ROOT / "build/mingw/bin") as machine:
        failures = Scene(machine, seed).run(count)
    for failure in failures:
        print(f"FAILED trees (seed {seed}): {failure}")
    print(f"{count - len(failures)} passed, {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
