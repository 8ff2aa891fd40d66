"""Side-by-side timings of work over many or large files against the build machine's own tools.

    python3 bench/files.py [-n ROUNDS] [NAME...]

Each round runs every contestant once, in turn; medians are shown, with the start-up of the shell measured in the same
rounds, and the ratio to the native tool with that start-up subtracted. The files are in the system's cache.
"""
import argparse
import os
import shutil
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

from contestants import SHELLS, windows

ROOT = Path(__file__).resolve().parent.parent
PREFIX = ROOT / "build" / "wine" / "bench"
WINE = "/usr/lib/wine/wine64" if os.access("/usr/lib/wine/wine64", os.X_OK) else "wine"
ENVIRONMENT = dict(os.environ, WINEPREFIX=str(PREFIX), WINEDEBUG="-all")


def orv(line):
    return [WINE, *SHELLS["ORV"], line]


def prompt(line):
    return [WINE, *SHELLS["command prompt"], line]


def big_files(folder, count, megabytes):
    """Files of random bytes; the last is a copy of the first."""
    block = os.urandom(1 << 20)
    for number in range(count):
        with open(folder / f"big{number}.bin", "wb") as file:
            for part in range(megabytes):
                stamp = f"{number % (count - 1)} {part}".encode()
                file.write(stamp + block[len(stamp):])


def hash_files(folder):
    """SHA-256 of 2 GB in four files"""
    big_files(folder, 4, 512)
    return {"HASH": orv("hash big*.bin"), "sha256sum": ["sh", "-c", "sha256sum big*.bin"]}, "sha256sum"


def dedupe_files(folder):
    """Duplicates among 2 GB in four files"""
    big_files(folder, 4, 512)
    return {"DEDUPE": orv("dedupe big*.bin"), "sha256sum": ["sh", "-c", "sha256sum big*.bin"]}, "sha256sum"


def find_text(folder):
    """A text in 2,000 files of 50 KB"""
    line = "The quick brown fox jumps over the lazy dog 0123456789\n"
    for number in range(2000):
        (folder / f"text{number}.txt").write_text(line * 900 + ("needle\n" if number % 500 == 0 else ""))
    return {"FFIND": orv("ffind /b /t\"needle\" *.txt"), "grep": ["sh", "-c", "grep -il needle *.txt"]}, "grep"


def walk(folder, files):
    for number in range(files // 100):
        leaf = folder / f"directory{number // 10}" / f"part{number % 10}"
        leaf.mkdir(parents=True)
        for file in range(100):
            (leaf / f"some_file_{file:03}.txt").touch()
    return {"DIR": orv("dir /s /b"), "command prompt": prompt("dir /s /b"), "find": ["find", "."]}, "command prompt"


def walk_10k(folder):
    """DIR /S /B of 10,000 files"""
    return walk(folder, 10_000)


def walk_100k(folder):
    """DIR /S /B of 100,000 files"""
    return walk(folder, 100_000)


BENCHES = {bench.__name__: bench for bench in (hash_files, dedupe_files, find_text, walk_10k, walk_100k)}


def seconds(arguments, folder):
    start = time.perf_counter()
    subprocess.run(arguments, env=ENVIRONMENT, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
    return time.perf_counter() - start


def run(bench, rounds):
    folder = Path(tempfile.mkdtemp(prefix="movacore-bench-"))
    try:
        jobs, reference = bench(folder)
        jobs["start of ORV"] = orv("rem")
        jobs["start of prompt"] = prompt("rem")
        times = {name: [] for name in jobs}
        for turn in range(rounds + 1):  # the first warms the caches
            for name, arguments in jobs.items():
                times[name].append(seconds(arguments, folder))
        medians = {name: statistics.median(values[1:]) for name, values in times.items()}
        print(f"\n{bench.__doc__}", flush=True)
        starts = {"command prompt": "start of prompt", "sha256sum": None, "grep": None, "find": None}
        net = {name: value - (medians[starts.get(name, "start of ORV")] if starts.get(name, True) else 0)
               for name, value in medians.items()}
        for name, value in medians.items():
            ratio = "" if name.startswith("start") else f"{net[name] / net[reference]:8.2f} of {reference}"
            print(f"  {name:16} {value * 1e3:9.1f} ms {ratio}", flush=True)
    finally:
        shutil.rmtree(folder)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", type=int, default=5, metavar="ROUNDS")
    parser.add_argument("names", nargs="*", metavar="NAME", help=", ".join(BENCHES))
    options = parser.parse_args()
    subprocess.run([ROOT / "tools" / "build", "mingw"], check=True)
    subprocess.run([ROOT / "tools" / "wine_prefix", PREFIX], check=True)
    server = Path(WINE).with_name("wineserver64")
    subprocess.run([server if server.exists() else "wineserver", "-p30"], env=ENVIRONMENT)
    for name in options.names or BENCHES:
        run(BENCHES[name], options.n)


main()
