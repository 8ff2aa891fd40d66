#!/usr/bin/env python3
"""Checks that need no compiler: formatting, the order of the floors, and that no code asks what it runs on. Prints
the name of each check that failed with its findings; the last line is the sum."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
CODE = (".h", ".cpp", ".inc")


def code_files(*folders):
    return [
        path for folder in folders for path in sorted((ROOT / folder).rglob("*")) if path.suffix in CODE and path.is_file()
    ]


def formatting():
    files = code_files("src", "tests", "fuzz", "bench")
    findings = []
    for start in range(0, len(files), 50):
        command = ["clang-format", "--dry-run", *map(str, files[start : start + 50])]
        done = subprocess.run(command, cwd=ROOT, capture_output=True, text=True, check=False)
        if done.returncode:
            findings.append(done.stderr)
        findings += sorted(set(re.findall(r"^(\S+?):\d+:\d+: warning", done.stderr, re.MULTILINE)))
    return [finding.replace(f"{ROOT}/", "") + ": run tools/format" for finding in findings]


def floors():
    done = subprocess.run([sys.executable, ROOT / "tools/check_layers.py"], capture_output=True, text=True, check=False)
    return (done.stdout + done.stderr).splitlines()


def settings():
    command = [sys.executable, ROOT / "tools/check_settings.py"]
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return (done.stdout + done.stderr).splitlines()


def reference():
    command = [sys.executable, ROOT / "tools/check_reference.py"]
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return (done.stdout + done.stderr).splitlines()


def windows_only():
    """Windows is the target; an emulation of it that behaves otherwise is no reason for other code."""
    findings = []
    for path in code_files("src"):
        name = path.relative_to(ROOT).as_posix()
        if not name.startswith(("src/platform/", "src/host/")) and re.search(r"\bwine(?![a-z])", path.read_text(), re.IGNORECASE):
            findings.append(f"{name}: mentions Wine")
    return findings


def keys():
    """docs/console.md tells the keys as the table of key functions has them."""
    table = (ROOT / "src/config/key_functions.cpp").read_text()
    known = {name: keys.split() for name, keys in re.findall(r'\{u"(\w+)", u"[^"]*", \w+, u"([^"]*)"\}', table)}
    page = (ROOT / "docs/console.md").read_text()
    told = {name: re.findall(r"`([^`]*)`", keys) for keys, name in re.findall(r"^\| (.*?) \| (\w+) \|", page, re.MULTILINE)}
    told.pop("function", None)
    return [f"docs/console.md: {name}: the keys are {known.get(name)}" for name in told if told[name] != known.get(name)]


def messages():
    """Every named message has its text, and every text its name."""
    header = "\n".join(file.read_text() for file in (ROOT / "src/lang").glob("*.h"))
    codes = {int(code, 16) - 0x1FFFF448 for code in re.findall(r"= (0x2[0-9A-Fa-f]{7});", header)}
    named = codes | {int(number) for number in re.findall(r"= (\d{4});", header)}
    texts = [int(number) for number in re.findall(r'^\s+(\d{4}) "', (ROOT / "src/lang/english.rc").read_text(), re.MULTILINE)]
    findings = [f"message {number} has no text" for number in sorted(named - set(texts))]
    findings += [f"text {number} has no name" for number in sorted(set(texts) - named)]
    return findings + [f"text {number} stands twice" for number in sorted({n for n in texts if texts.count(n) > 1})]


CHECKS = {
    "formatting": formatting,
    "floors": floors,
    "keys": keys,
    "messages": messages,
    "settings": settings,
    "reference": reference,
    "Windows only": windows_only,
}


def main():
    failed = 0
    for name, check in CHECKS.items():
        findings = check()
        if findings:
            failed += 1
            print(f"FAILED {name}")
            print("".join(f"  {finding}\n" for finding in findings), end="")
    print(f"{len(CHECKS) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
