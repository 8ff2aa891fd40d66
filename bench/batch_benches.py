"""Benches of batch files: what a loop, a call, a line and a pipe cost."""
from contestants import REFERENCE, SHELLS, batch_jobs, write_script


def goto_lines(passes):
    return ["@echo off", "set n=0", ":again", "set /a n=n+1", f"if not %n% == {passes} goto again"]


def goto_loop(folder):
    """20,000 passes of a loop with GOTO and SET /A"""
    return batch_jobs(folder, "jumps", goto_lines(20_000)), 20_000


def straight_lines(folder):
    """20,000 lines of SET, IF and substrings"""
    kinds = ["set name{0}=some value {1}", "if \"%name{0}%\" == \"some value {1}\" set hit={1}",
             "set part=%name{0}:~5,5%", "if defined part set last=%part:~-2%"]
    lines = [kinds[i % 4].format(i // 4 % 9, i // 4) for i in range(20_000)]
    return batch_jobs(folder, "straight", ["@echo off", *lines]), 20_000


def call_label(folder):
    """5,000 CALLs of a label"""
    lines = ["@echo off", "for /l %%i in (1,1,5000) do call :work %%i", "goto :eof", ":work", "set last=%1",
             "goto :eof"]
    return batch_jobs(folder, "calls", lines), 5000


def for_numbers(folder):
    """FOR /L over 50,000 numbers with a SET inside"""
    return batch_jobs(folder, "numbers", ["@echo off", "for /l %%i in (1,1,50000) do set last=%%i"]), 50_000


def for_lines(folder):
    """FOR /F over 50,000 lines with a SET inside"""
    write_script(folder, "lines.txt", [f"{i} name{i % 100} and the rest of the line" for i in range(50_000)])
    lines = ["@echo off", "for /f \"tokens=1,2*\" %%a in (lines.txt) do set last=%%b"]
    return batch_jobs(folder, "each_line", lines), 50_000


def append_lines(folder):
    """One line appended to a file 5,000 times"""
    lines = ["@echo off", "echo first>out.txt", "for /l %%i in (1,1,5000) do echo line %%i>>out.txt"]
    return batch_jobs(folder, "append", lines), 5000


def pipes(folder):
    """20 pipes of three commands"""
    lines = ["@echo off"] + ["echo some text|findstr some|findstr text>nul"] * 20
    return batch_jobs(folder, "pipes", lines), 20


def loop_growth(folder):
    """The GOTO loop of 2,000, 20,000 and 200,000 passes: the cost of one must stay the same"""
    jobs = {}
    counts = {}
    for passes in (2_000, 20_000, 200_000):
        for kind in ("cmd", "btm"):
            name = f"ORV .{kind} {passes:,}"
            jobs[name] = [*SHELLS["ORV"], write_script(folder, f"loop{passes}.{kind}", goto_lines(passes))]
            counts[name] = passes
    jobs[REFERENCE] = [*SHELLS[REFERENCE], "loop2000.cmd"]
    counts[REFERENCE] = 2_000
    return jobs, counts


def far_label(folder):
    """100 jumps to the end of 50,000 lines and back (the command prompt: 5)"""
    def lines(jumps):
        return ["@echo off", "set n=0", "goto end", ":back", *["rem nothing to see here"] * 50_000, ":end",
                "set /a n=n+1", f"if not %n% == {jumps} goto back_to_end", "exit", ":back_to_end", "goto end"]
    jobs = batch_jobs(folder, "far", lines(100))
    jobs[REFERENCE] = [*SHELLS[REFERENCE], write_script(folder, "far_few.cmd", lines(5))]
    return jobs, {"ORV .cmd": 100, "ORV .btm": 100, REFERENCE: 5}


BENCHES = [goto_loop, straight_lines, call_label, for_numbers, for_lines, append_lines, pipes, loop_growth, far_label]
