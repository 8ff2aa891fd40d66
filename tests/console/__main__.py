"""Runs the console tests: python3 tests/console [-k PATTERN] [--slow]. README.md tells about the cases."""

import argparse
import importlib
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/runner")]

from console import Console, Failure  # noqa: E402
from machine import Machine  # noqa: E402
from registry import CASES  # noqa: E402


# Cases that may be tried once more in a run: on a crowded machine the emulated console now and then loses a
# key or a redrawing. More than that is a fault of ours.
SECOND_TRIES = 2


def run(machine, name, function):
    """The failure's text, or None."""
    # A tmux server that is on its way out still answers, so each case has its own.
    with tempfile.TemporaryDirectory(prefix="orv-console-") as folder:
        console = Console(machine, f"{folder}/tmux")
        try:
            function(console)
            return None
        except Failure as failure:
            return f"FAILED console: {name}\n{failure}"
        finally:
            console.close()


def main():
    parser = argparse.ArgumentParser(prog="tests/console")
    parser.add_argument("-k", dest="pattern", default="", help="only cases with this in their name")
    parser.add_argument("--slow", action="store_true", help="tell how long each case takes")
    arguments = parser.parse_args()
    for file in sorted(Path(__file__).parent.glob("cases_*.py")):
        importlib.import_module(file.stem)
    chosen = [entry for entry in CASES if arguments.pattern.lower() in entry[0].lower()]
    passed = failed = tried_again = 0
    with Machine(ROOT, ROOT / "build/mingw/bin") as machine:
        for name, function in chosen:
            started = time.monotonic()
            failure = run(machine, name, function)
            if failure and tried_again < SECOND_TRIES:
                tried_again += 1
                print(f"note: tried again\n{failure}", flush=True)
                failure = run(machine, name, function)
            if failure:
                print(failure, flush=True)
            passed, failed = passed + (failure is None), failed + (failure is not None)
            if arguments.slow:
                print(f"{time.monotonic() - started:5.1f} s  {name}")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
