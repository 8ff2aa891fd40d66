"""Who takes part in a bench, and how each of them is told to run a script or a line."""
from pathlib import Path

BIN = Path(__file__).resolve().parent.parent / "build" / "mingw" / "bin"
REFERENCE = "command prompt"


def windows(path):
    return "Z:" + str(path).replace("/", "\\")


SHELLS = {"ORV": [windows(BIN / "ORV.exe"), "/C"], REFERENCE: [r"C:\windows\system32\cmd.exe", "/C"]}


def both(line):
    """The same command line for both shells."""
    return {name: [*shell, line] for name, shell in SHELLS.items()}


def write_script(folder, name, lines):
    (folder / name).write_text("\r\n".join(lines) + "\r\n")
    return name


def batch_jobs(folder, name, lines):
    """The same lines as a .CMD file for both shells and as a .BTM file."""
    cmd = write_script(folder, name + ".cmd", lines)
    btm = write_script(folder, name + ".btm", lines)
    return {"ORV .cmd": [*SHELLS["ORV"], cmd], "ORV .btm": [*SHELLS["ORV"], btm],
            REFERENCE: [*SHELLS[REFERENCE], cmd]}


def start_of(job):
    """The shell whose start-up a job's time contains."""
    return REFERENCE if job == REFERENCE else "ORV"
