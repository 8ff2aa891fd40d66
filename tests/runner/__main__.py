"""Runs golden scripts: python3 tests/runner [options] [file or folder...]. README.md tells about the format."""

import argparse
import contextlib
import os
import queue
import re
import sys
import threading
import time
import traceback
from pathlib import Path

import bless
import case_file
import help_examples
import reference_page
import tokens
from execute import Difference, Execution, Settings
from machine import Machine, MachineError

ROOT = Path(__file__).resolve().parents[2]


PARSERS = {".case": case_file.parse, ".md": reference_page.parse, ".cpp": help_examples.parse}
DEFAULT_PATHS = [ROOT / "tests/scripts", ROOT / "docs/reference", ROOT / "src/commands"]
# What the shell reports when the emulated system fails to start a process, as it rarely does under load.
NO_START = '+Internal error. "'


def read_arguments():
    parser = argparse.ArgumentParser(prog="tests/runner", description="Runs golden scripts through the shell.")
    parser.add_argument("paths", nargs="*", type=Path, help="case files or folders (default: tests/scripts, docs/reference and src/commands)")
    parser.add_argument("-k", dest="pattern", default="", help="only cases with this in their file or name")
    parser.add_argument("-j", dest="workers", type=int, default=min(2, os.cpu_count() or 1))
    parser.add_argument("--bless", action="store_true", help="rewrite the expectations of failing cases")
    parser.add_argument("--keep", action="store_true", help="leave the folders of failing cases in build/wine")
    parser.add_argument("--slow", action="store_true", help="list the ten slowest cases")
    parser.add_argument("--timeout", type=float, default=30, help="seconds per case that names no limit")
    parser.add_argument("--bin", type=Path, default=ROOT / "build/mingw/bin", help="folder of the programs")
    parser.add_argument("--shell", help="another program, by its Windows path, in place of ORV.exe")
    return parser.parse_args()


def find_cases(paths, pattern):
    """All cases whose file or name has the pattern, and the messages of files that cannot be read."""
    files = []
    for path in paths:
        files += sorted(file for file in path.rglob("*") if file.suffix in PARSERS) if path.is_dir() else [path]
    cases, errors = [], []
    for file in files:
        name = str(file.resolve().relative_to(ROOT)) if file.resolve().is_relative_to(ROOT) else str(file)
        try:
            found = PARSERS[file.suffix](name, file.read_text(encoding="utf-8"))
        except (case_file.CaseError, UnicodeDecodeError) as error:
            errors.append(str(error))
            continue
        cases += [case for case in found if pattern.lower() in f"{name}: {case.name}".lower()]
    return cases, errors


class Run:
    """All cases of one call: hands them to the workers and reports in the order of the files."""

    def __init__(self, arguments, cases):
        self.arguments = arguments
        self.cases = cases
        version = re.search(r"project\(Movacore VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
        self.settings = Settings(version, arguments.timeout, arguments.shell, arguments.keep)
        self.waiting = queue.Queue()
        self.results = [None] * len(cases)
        self.seconds = [0.0] * len(cases)
        self.changed = threading.Condition()
        self.passed = self.failed = self.skipped = 0

    def go(self):
        for number in range(len(self.cases)):
            self.waiting.put(number)
        workers = [threading.Thread(target=self.work) for _ in range(self.arguments.workers)]
        for worker in workers:
            worker.start()
        try:
            for number in range(len(self.cases)):
                with self.changed:
                    self.changed.wait_for(lambda wanted=number: self.results[wanted] is not None)
                self.report(self.cases[number], self.results[number])
        finally:
            # Somebody who breaks off waits for the cases that run, no longer.
            with contextlib.suppress(queue.Empty):
                while True:
                    self.waiting.get_nowait()
            for worker in workers:
                worker.join()

    def work(self):
        machine = None
        while True:
            try:
                number = self.waiting.get_nowait()
            except queue.Empty:
                break
            started = time.monotonic()
            try:
                machine = machine or Machine(ROOT, self.arguments.bin)
                result = Execution(machine, self.settings, self.cases[number], number).run()
                if any(NO_START in line for difference in result for line in difference.report):
                    print(f"note: {self.cases[number].title}: a process did not start; trying again", flush=True)
                    result = Execution(machine, self.settings, self.cases[number], number).run()
            except (tokens.TokenError, MachineError) as error:
                result = [Difference("cannot run", [str(error)])]
            except Exception:  # whatever it is, the other cases must still be answered
                result = [Difference("cannot run", traceback.format_exc().splitlines())]
            with self.changed:
                self.results[number] = result
                self.seconds[number] = time.monotonic() - started
                self.changed.notify_all()
        if machine:
            machine.close()

    def report(self, case, differences):
        if case.known_gap:
            if differences:
                self.skipped += 1
                return
            differences = [Difference("known gap", [f"passes now: {case.known_gap}"])]
        if not differences:
            self.passed += 1
            return
        self.failed += 1
        print(f"FAILED {case.title}")
        for difference in differences:
            print(f"  {difference.what}:")
            for line in difference.report:
                print("    " + line.replace("{{lf}}", "{{lf}}\n        "))
        sys.stdout.flush()

    def failing(self):
        """Cases that may be blessed, with their differences."""
        pairs = zip(self.cases, self.results)
        return [(case, result) for case, result in pairs if result and not (case.known_gap or case.is_reference)]


def main():
    arguments = read_arguments()
    sys.stdout.reconfigure(errors="backslashreplace")
    cases, errors = find_cases(arguments.paths or DEFAULT_PATHS, arguments.pattern)
    for error in errors:
        print(f"FAILED {error}")
    run = Run(arguments, cases)
    run.go()
    if arguments.slow:
        for seconds, case in sorted(zip(run.seconds, cases), key=lambda pair: -pair[0])[:10]:
            print(f"{seconds:6.2f} s  {case.title}")
    if arguments.bless:
        for path in bless.rewrite(ROOT, run.failing()):
            print(f"rewrote {path}")
    failed = run.failed + len(errors)
    skipped = f", {run.skipped} skipped" if run.skipped else ""
    print(f"{run.passed} passed, {failed} failed{skipped}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
