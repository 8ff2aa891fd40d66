#!/usr/bin/env python3
"""Checks which system libraries a binary loads with itself: start-up is a budget, and every library beyond these
two belongs to whoever first calls it (src/platform/lazy_library.h).

    tools/check_imports.py BINARY...
"""
import re
import subprocess
import sys

ALLOWED = {"kernel32.dll", "msvcrt.dll", "movacore.dll"}


def imports(binary):
    dump = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", binary], capture_output=True, text=True, check=True)
    return set(re.findall(r"DLL Name: (\S+)", dump.stdout))


def main():
    failed = 0
    for binary in sys.argv[1:]:
        excess = sorted(name for name in imports(binary) if name.lower() not in ALLOWED)
        if excess:
            failed += 1
            print(f"FAILED {binary} loads {', '.join(excess)} at its start")
    print(f"{len(sys.argv) - 1 - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
