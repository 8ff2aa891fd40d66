"""Questions that a key answers, and commands that wait for the person."""

from console import Failure
from registry import case


@case("the prefix ? asks before a command runs")
def asked_command(console):
    console.start()
    console.line("? echo done")
    console.ends_with("echo done (Y/N)?")
    console.keys("x")
    console.keys("y")
    console.ends_with("echo done (Y/N)? Y", "done", ">")
    console.line('?"Really" echo done & echo nor this')
    console.ends_with("Really (Y/N)?")
    console.keys("n")
    console.ends_with("Really (Y/N)? N", ">")


@case("Ctrl+C at a question abandons the line")
def broken_question(console):
    console.start()
    console.line("echo first & ? echo second")
    console.ends_with("echo second (Y/N)?")
    console.keys("C-c")
    console.ends_with("first", "echo second (Y/N)? ^C", ">")


@case("PAUSE waits for a key")
def pause(console):
    console.start()
    console.line("pause & echo after")
    console.ends_with("Press any key when ready...")
    console.keys("F5")
    console.ends_with("Press any key when ready...", "after", ">")


@case("DELAY /B ends with a key, which is not kept for the prompt")
def delay(console):
    console.start()
    console.line("echo wait & delay /b 60 & echo after")
    console.ends_with("wait")
    console.keys("q")
    console.ends_with("wait", "after", ">")
    console.line("echo %!")
    console.ends_with(">echo %!", "after", ">")


@case("DATE and TIME ask again after a bad answer, and an empty one changes nothing")
def clock(console):
    console.start()
    console.line("date & echo after")
    console.ends_with("New date:")
    console.line("13-32-2026")
    console.ends_with("New date: 13-32-2026", 'Invalid date "13-32-2026"', "New date:")
    console.keys("Enter")
    console.ends_with("New date:", "after", ">")
    console.line("time")
    console.ends_with("New time:")
    console.line("25:00")
    console.ends_with('Invalid time "25:00"', "New time:")
    console.keys("C-c")
    console.ends_with("New time: ^C", ">")


@case("INKEY takes keys by their codes, refuses others and runs out of time")
def inkey(console):
    console.start()
    console.line('inkey /k"yn[F1][Alt-X]" Sure? %%a & inkey /p %%b & inkey /x %%c & echo [%a][%b][%c]')
    console.ends_with("Sure?")
    console.keys("q", "F1", "z", "Up")
    console.ends_with("Sure?", "*", "[@59][z][@72]", ">")
    console.line("set a=kept & inkey /c /w0 %%a & inkey /w0.1 %%a || echo %? [%a]")
    console.ends_with("1 [kept]", ">")
    console.line("echo ready & inkey %%a & echo not reached")
    console.ends_with("ready")
    console.keys("C-c")
    console.ends_with("ready", "^C", ">")


@case("INPUT edits, hides, limits and waits for lines")
def input_line(console):
    console.start()
    console.line("set name=Peter & input /e Name: %%name & echo [%name]")
    console.ends_with("Name: Peter")
    console.keys("BSpace", "BSpace")
    console.line("ra")
    console.ends_with("Name: Petra", "[Petra]", ">")
    console.line("input /p /l4 Code: %%a & input /d /x Age: %%b & echo [%a][%b]")
    console.ends_with("Code:")
    console.keys("x", "BSpace")
    console.line("abcdef")
    console.ends_with("Code: ****", "Age:")
    console.line("1x2")
    console.ends_with("Code: ****", "Age: 12[abcd][12]", ">")
    console.line("set a=kept & input /w0.1 Late: %%a || echo %? [%a]")
    console.ends_with("Late:", "1 [kept]", ">")


@case("questions before files: each answer does what it says, and nothing else")
def asked_files(console):
    for name in "abcdefgh":
        console.file(f"{name}.txt", name)
    console.start()
    console.line("del /p *.txt & echo %?")
    console.ends_with("a.txt : delete (Y/N/R/Q)?")
    console.keys("x", "y")
    console.ends_with("a.txt : delete (Y/N/R/Q)? Y", "Deleting a.txt", "b.txt : delete (Y/N/R/Q)?")
    console.keys("n")
    console.ends_with("c.txt : delete (Y/N/R/Q)?")
    console.keys("Escape")
    console.ends_with("     1 file deleted", "0", ">")
    console.line("copy /r c.txt d.txt & echo %?")
    console.ends_with("d.txt exists : replace it (Y/N/R/Q)?")
    console.keys("n")
    console.ends_with("     no files copied", "1", ">")
    console.line("del * & ren /p *.txt *.bak & echo not reached")
    console.row_with("(Y/N)?")
    console.keys("n")
    console.ends_with("b.txt : rename (Y/N/R/Q)?")
    console.keys("y")
    console.ends_with("c.txt : rename (Y/N/R/Q)?")
    console.keys("C-c")
    console.ends_with("c.txt : rename (Y/N/R/Q)? ^C",
                      "Broken off. What is not named was left as it was; nothing is half done.",
                      "     1 file renamed", ">")
    left = "".join(sorted(path.name[0] for path in console.folder.glob("*.*")))
    console.line("cls & move /p *.txt sub\\ /md & echo %?")
    console.ends_with("c.txt : move (Y/N/R/Q)?")
    console.keys("r")
    console.ends_with("     6 files moved", "0", ">")
    moved = "".join(sorted(path.name[0] for path in (console.folder / "sub").glob("*.txt")))
    if (left, moved) != ("bcdefgh", "cdefgh") or not (console.folder / "b.bak").exists():
        raise Failure(f"left {left}, moved {moved}")
