"""Side-by-side timings of the shell against Wine's own command prompt and do-nothing programs.

    python3 bench [-n ROUNDS] [NAME...]

Each round runs every contestant once, in turn, so that whatever slows the machine slows all of them; medians
are compared; the last column is the speed in relation to the command prompt's. Where a job's own cost is wanted, the
contestant's median start-up in the same rounds is subtracted. Nothing here fails: the figures are for reading, and
worth something only when nothing else runs.
"""
import argparse
import os
import shutil
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

import batch_benches
import file_benches
from console import ShownJob, seconds_until_shown
from contestants import BIN, REFERENCE, SHELLS, batch_jobs, both, start_of, windows

ROOT = Path(__file__).resolve().parent.parent
PREFIX = ROOT / "build" / "wine" / "bench"
WINE = "/usr/lib/wine/wine64" if os.access("/usr/lib/wine/wine64", os.X_OK) else "wine"


class Machine:
    """A Wine prefix with a warm server, and the clock."""

    def __init__(self):
        subprocess.run([ROOT / "tools" / "wine_prefix", PREFIX], check=True)
        self.environment = dict(os.environ, WINEPREFIX=str(PREFIX), WINEDEBUG="-all")
        server = Path(WINE).with_name("wineserver64")
        subprocess.run([server if server.exists() else "wineserver", "-p30"], env=self.environment)

    def seconds(self, arguments, folder):
        if isinstance(arguments, ShownJob):
            return seconds_until_shown(arguments, [WINE, *arguments], self.environment, folder)
        start = time.perf_counter()
        subprocess.run([WINE, *arguments], env=self.environment, cwd=folder, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return time.perf_counter() - start


def start_up(_folder):
    """Starting and leaving the shell"""
    jobs = both("rem")
    for program in ("nothing", "nothing_user32"):
        jobs[program] = [windows(BIN / "bench" / f"{program}.exe")]
    return jobs, None


def first_prompt(folder):
    """From the start in a console of its own to the first prompt, with default settings"""
    return {name: ShownJob(shell[:1], f"{folder.name}>") for name, shell in SHELLS.items()}, None


def echo_line(_folder):
    """500 ECHO commands to NUL in one line"""
    line = "&".join(["echo x>nul"] * 500)
    return both(line), 500


def batch_lines(folder):
    """2,000 lines of a plain batch file"""
    lines = ["@echo off"] + [f"set name{i % 7}=value {i}" if i % 2 else f"echo line {i}" for i in range(2000)]
    return batch_jobs(folder, "plain", lines), 2000


def ini_file(folder):
    """Starting with an INI file of 250 lines, and with none"""
    groups = (
        "; ---- lists and history ----",
        "AliasLocalSize=65536",
        "HistMin=3 ; nothing short",
        "HistDups=Last",
        "LogName=%TEMP%\\commands.log",
        "ErrorColors=bright red on black",
        "CommandSep=&",
        "EvalMax=12",
        "NextFile=Tab F9",
        "",
    )
    (folder / "large.ini").write_text("\r\n".join(groups * 25) + "\r\n")
    (folder / "empty.ini").write_text("")
    orv = windows(BIN / "ORV.exe")
    jobs = {f"{name} lines": [orv, f"@{windows(folder / file)}", "/C", "rem"] for name, file in
            (("250", "large.ini"), ("no", "empty.ini"))}
    return jobs | {REFERENCE: [*SHELLS[REFERENCE], "rem"]}, None


def walk_tree(folder, files):
    """A tree of about that many files, 100 in each directory; bare recursive DIR by each shell."""
    root = folder / f"tree{files}"
    for number in range(files // 100):
        leaf = root / f"directory{number // 10}" / f"part{number % 10}"
        leaf.mkdir(parents=True, exist_ok=True)
        for file in range(100):
            (leaf / f"some_file_{file:03}.txt").touch()
    return both(f"dir /s /b {windows(root)}"), files


def walk_10k(folder):
    """DIR /S /B of 10,000 files"""
    return walk_tree(folder, 10_000)


def walk_100k(folder):
    """DIR /S /B of 100,000 files"""
    return walk_tree(folder, 100_000)


BENCHES = {bench.__name__: bench for bench in
           [start_up, first_prompt, ini_file, echo_line, batch_lines, walk_10k, walk_100k, *batch_benches.BENCHES,
                         *file_benches.BENCHES]}


def measure(machine, jobs, folder, rounds):
    """The median seconds of each job, every round running each of them once."""
    times = {name: [] for name in jobs}
    for name, arguments in jobs.items():
        machine.seconds(arguments, folder)  # warms the caches
    for _ in range(rounds):
        for name, arguments in jobs.items():
            times[name].append(machine.seconds(arguments, folder))
    return {name: statistics.median(values) for name, values in times.items()}


def net_seconds(machine, jobs, counts, folder, rounds):
    """The jobs' own cost: where they repeat something, the start-up measured in the same rounds is taken away."""
    if not counts:
        return measure(machine, jobs, folder, rounds)
    starts = {start_of(name): both("rem")[start_of(name)] for name in jobs}
    medians = measure(machine, jobs | {f"start of {shell}": start for shell, start in starts.items()}, folder, rounds)
    return {name: medians[name] - medians[f"start of {start_of(name)}"] for name in jobs}


def report(title, seconds, counts):
    """Counts differ where one contestant would take too long: the ratio is that of the costs of one."""
    print(f"\n{title}", flush=True)
    costs = {name: value / counts[name] if counts else value for name, value in seconds.items()}
    for name, value in seconds.items():
        each = f"{costs[name] * 1e6:9.1f} us each" if counts else ""
        ratio = f"{costs[REFERENCE] / costs[name]:9.2f} x" if value > 0 else "   in the noise"
        print(f"  {name:20} {value * 1e3:9.1f} ms {each:>17} {ratio}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", type=int, default=15, metavar="ROUNDS")
    parser.add_argument("names", nargs="*", metavar="NAME", help=", ".join(BENCHES))
    options = parser.parse_args()
    subprocess.run([ROOT / "tools" / "build", "mingw"], check=True)
    machine = Machine()
    folder = Path(tempfile.mkdtemp(prefix="movacore-bench-"))
    try:
        for name in options.names or BENCHES:
            jobs, counts = BENCHES[name](folder)
            if isinstance(counts, int):
                counts = dict.fromkeys(jobs, counts)
            report(BENCHES[name].__doc__, net_seconds(machine, jobs, counts, folder, options.n), counts)
    finally:
        shutil.rmtree(folder)


main()
