#!/usr/bin/env python3
"""Builds and runs the rings of tests; ./test calls it once the machine is ready. Each ring is a function that says
how many tests passed, failed and were skipped."""

import argparse
import concurrent.futures
import functools
import json
import os
import re
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
BUILD = ROOT / "build"
FUZZ_SECONDS = 4
SUMMARY = re.compile(r"^(\d+) passed, (\d+) failed(?:, (\d+) skipped)?$", re.MULTILINE)


class Outcome:
    def __init__(self, passed=0, failed=0, skipped=0):
        self.passed, self.failed, self.skipped = passed, failed, skipped

    def __iadd__(self, other):
        self.passed += other.passed
        self.failed += other.failed
        self.skipped += other.skipped
        return self

    def __str__(self):
        return f"{self.passed} passed, {self.failed} failed" + (f", {self.skipped} skipped" if self.skipped else "")


class BuildFailed(Exception):
    pass


@functools.cache
def builds(preset):
    return subprocess.run([ROOT / "tools/build", preset], check=False).returncode == 0


def build(preset):
    if not builds(preset):
        raise BuildFailed(f"the preset {preset} does not build")


def run_counted(command, environment=None):
    """Runs a program whose last line is a sum like ours and shows what it says above that line."""
    done = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, encoding="utf-8", env=environment, check=False)
    sums = list(SUMMARY.finditer(done.stdout))
    if not sums:
        print(done.stdout + f"{command[1]} ended with {done.returncode} and no sum")
        return Outcome(failed=1)
    print(done.stdout[: sums[-1].start()], end="")
    passed, failed, skipped = (int(number or 0) for number in sums[-1].groups())
    if done.returncode and not failed:
        print(f"{command[1]} ended with {done.returncode}")
        failed = 1
    return Outcome(passed, failed, skipped)


def run_google_tests(command, report, report_option, pattern, environment):
    """Runs a GoogleTest program and takes the sum from the report that it writes."""
    report.unlink(missing_ok=True)
    arguments = [*command, "--gtest_brief=1", f"--gtest_output=json:{report_option}"]
    if pattern:
        arguments.append(f"--gtest_filter=*{pattern}*")
    done = subprocess.run(
        arguments, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, encoding="utf-8",
        errors="backslashreplace", env=environment, check=False,
    )
    if not report.exists():
        print(done.stdout + f"ended with {done.returncode} in the middle of a test")
        return Outcome(failed=1)
    counts = json.loads(report.read_text(encoding="utf-8"))
    skipped = counts["disabled"] + sum(
        test.get("result") == "SKIPPED" for suite in counts["testsuites"] for test in suite["testsuite"]
    )
    failed = counts["failures"] + counts["errors"]
    if done.returncode or failed:
        print(done.stdout, end="")
        failed = max(failed, 1)
    return Outcome(counts["tests"] - failed - skipped, failed, skipped)


def wine_environment(prefix):
    subprocess.run([ROOT / "tools/wine_prefix", prefix], check=True)
    return os.environ | {"WINEPREFIX": str(prefix), "WINEDEBUG": "-all", "LC_ALL": "C.UTF-8", "TZ": "UTC"}


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def style_ring(_pattern):
    return run_counted([sys.executable, "tools/check_style.py"])


def runner_ring(_pattern):
    build("mingw")
    command = [sys.executable, "-m", "unittest", "discover", "-s", "tests/runner/selftest"]
    environment = os.environ | {"PYTHONPATH": str(ROOT / "tests/runner")}
    done = subprocess.run(command, cwd=ROOT, stderr=subprocess.PIPE, encoding="utf-8", env=environment, check=False)
    count = int(re.search(r"^Ran (\d+) test", done.stderr, re.MULTILINE)[1])
    if done.returncode == 0:
        return Outcome(passed=count)
    print(done.stderr, end="")
    failed = sum(int(number) for number in re.findall(r"(?:failures|errors)=(\d+)", done.stderr))
    return Outcome(max(count - failed, 0), max(failed, 1))


def unit_ring(pattern):
    build("native")
    if not any((ROOT / "tests/unit").glob("*.cpp")):
        return Outcome()
    program = BUILD / "native/bin/unit_tests"
    report = BUILD / "native/unit_tests.json"
    environment = os.environ | {"UBSAN_OPTIONS": "print_stacktrace=1"}
    return run_google_tests([program], report, report, pattern, environment)


def engine_ring(pattern):
    build("mingw")
    if not any((ROOT / "tests/engine").glob("*.cpp")):
        return Outcome()
    program = BUILD / "mingw/bin/engine_tests.exe"
    debian_wine = Path("/usr/lib/wine/wine64")
    wine = str(debian_wine) if debian_wine.exists() else "wine"
    report = BUILD / "mingw/engine_tests.json"
    environment = wine_environment(BUILD / "wine/engine")
    outcome = run_google_tests([wine, windows_path(program)], report, windows_path(report), pattern, environment)
    if not pattern:
        binaries = [BUILD / "mingw/bin" / name for name in ("ORV.exe", "Movacore.dll")]
        outcome += run_counted([sys.executable, "tools/check_imports.py", *binaries])
    return outcome


def scripts_ring(pattern):
    build("mingw")
    return run_counted([sys.executable, "tests/runner", "-k", pattern])


def console_ring(pattern):
    if not (ROOT / "tests/console/__main__.py").exists():
        return Outcome()
    build("mingw")
    return run_counted([sys.executable, "tests/console", "-k", pattern])


def kills_ring(_pattern):
    build("mingw")
    return run_counted([sys.executable, "tests/kills"])


def trees_ring(_pattern):
    build("mingw")
    return run_counted([sys.executable, "tests/trees"])


def fuzz_ring(pattern):
    build("fuzz")
    names = [source.stem for source in sorted((ROOT / "fuzz").glob("*.cpp")) if pattern.lower() in source.stem]
    outcome = Outcome()
    with concurrent.futures.ThreadPoolExecutor(min(2, os.cpu_count() or 1)) as workers:
        for one in workers.map(fuzz_target, names):
            outcome += one
    return outcome


def fuzz_target(name):
    """A few seconds from the kept corpus. What is new goes to a corpus in the build folder."""
    own = BUILD / "fuzz/corpus" / name
    findings = BUILD / "fuzz/findings"
    for folder in (own, findings):
        folder.mkdir(parents=True, exist_ok=True)
    command = [BUILD / "fuzz/bin" / name, f"-max_total_time={FUZZ_SECONDS}", "-timeout=10", "-rss_limit_mb=2048"]
    command += ["-print_final_stats=0", "-verbosity=0", f"-artifact_prefix={findings}/{name}-", own]
    kept = ROOT / "fuzz/corpus" / name
    command += [kept] if kept.is_dir() else []
    dictionary = ROOT / "fuzz" / f"{name}.dict"
    command += [f"-dict={dictionary}"] if dictionary.exists() else []
    done = subprocess.run(command, capture_output=True, text=True, errors="backslashreplace", check=False)
    if done.returncode == 0:
        return Outcome(passed=1)
    print(f"FAILED fuzz {name}\n{done.stderr}")
    return Outcome(failed=1)


# A pattern names tests; these rings have none to choose from.
UNNAMED = ("style", "runner", "kills", "trees")
RINGS = {
    "style": style_ring,
    "runner": runner_ring,
    "unit": unit_ring,
    "engine": engine_ring,
    "scripts": scripts_ring,
    "console": console_ring,
    "kills": kills_ring,
    "trees": trees_ring,
    "fuzz": fuzz_ring,
}


def main():
    parser = argparse.ArgumentParser(prog="./test", description="Builds and runs every test that needs no person.")
    parser.add_argument("-k", dest="pattern", default="", help="only tests with this in their name")
    parser.add_argument("rings", nargs="*", metavar="ring", help=f"of {', '.join(RINGS)}; all of them unless said")
    arguments = parser.parse_args()
    for ring in arguments.rings:
        if ring not in RINGS:
            parser.error(f"there is no ring {ring}")
    chosen = arguments.rings or [ring for ring in RINGS if not arguments.pattern or ring not in UNNAMED]
    total = Outcome()
    for ring in chosen:
        started = time.monotonic()
        try:
            outcome = RINGS[ring](arguments.pattern)
        except BuildFailed as error:
            print(f"FAILED {ring}: {error}")
            outcome = Outcome(failed=1)
        print(f"{ring + ':':9}{outcome}  ({time.monotonic() - started:.1f} s)", flush=True)
        total += outcome
    print(total)
    return 1 if total.failed or not (total.passed or total.skipped) else 0


if __name__ == "__main__":
    sys.exit(main())
