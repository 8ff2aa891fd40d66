"""The line editor: correcting, recalling, pasting."""

from registry import case


@case("a line is corrected where the cursor stands, and undone")
def correcting(console):
    console.start("//EditMode=Insert")
    console.shows(">")
    console.text("ecko onne")
    console.keys("Left", "Left", "BSpace", "Left", "Left", "Left", "Left", "DC", "h")
    console.shows(">echo one")
    console.keys("Right", "Right", "Right", "Right", "Right", "C-l", "C-l")
    console.shows(">")
    console.text("echo two")
    console.keys("Enter")
    console.shows(">echo two", "two", ">")


@case("lines are recalled by their beginning; a recalled line is not kept twice")
def recalling(console):
    console.start("//LocalHistory=Yes")
    console.shows(">")
    for line in ("echo one", "ver > nul", "echo two"):
        console.line(line)
    console.ends_with("two", ">")
    console.text("ec")
    console.keys("Up", "Up")
    console.ends_with(">echo one")
    console.keys("Down", "Down")
    console.ends_with(">ec")
    console.keys("Up", "Enter")
    console.ends_with(">echo two", "two", ">")
    console.line("history")
    console.ends_with("echo one", "ver > nul", "echo two", "history", ">")


@case("a line longer than the window goes on in the next row, at the bottom of the screen too")
def long_lines(console):
    console.start()
    console.shows(">")
    console.line("do i=1 to 40 (echo %i)")
    console.ends_with("40", ">")
    console.text("echo " + "0123456789" * 9)
    console.ends_with(">echo " + ("0123456789" * 9)[:74], ("0123456789" * 9)[74:])
    console.keys("Escape")
    console.ends_with("40", ">")


@case("text of several lines that comes at once waits for Enter, and then runs line by line")
def pasting(console):
    console.start()
    console.shows(">")
    console.text("echo first\recho second\rexit /b")
    console.ends_with(">echo first", "echo second", "exit /b")
    console.keys("C-u", "Escape")
    console.ends_with(">")
    console.text("echo first\recho second")
    console.ends_with(">echo first", "echo second")
    console.keys("Enter")
    console.ends_with("first", ">echo second", "second", ">")
    console.text("".join(f"echo never {i}\n" for i in range(600)) + "echo last")
    console.ends_with("echo never 599", "echo last")
    console.keys("C-c")
    console.ends_with("echo last^C", ">")
    console.line("echo alive")
    console.ends_with(">echo alive", "alive", ">")


@case("colors while typing, and what the history would make of the line")
def colors(console):
    console.start("//SyntaxColors=Yes", "//LocalHistory=Yes")
    console.shows(">")
    console.line("echo words to come")
    console.ends_with("words to come", ">")
    console.text("echo w")
    console.ends_with(">echo words to come")
    console.has_colors("\x1b[93mecho")
    console.keys("Right", "Enter")
    console.ends_with("words to come", ">echo words to come", "words to come", ">")


@case("the windows of the histories: filters, changes, deletions; aliases in all commands of a line")
def history_window(console):
    console.start("//LocalHistory=Yes", "//XHistEdit=F4")
    console.shows(">")
    for line in ("xhistory /f", "echo one", "ver > nul", "echo two"):
        console.line(line)
    console.ends_with("two", ">")
    console.keys("PPage")
    console.wait(lambda: any("4/4" in row for row in console.rows()), ["a list of four"], console.rows)
    console.text("one")
    console.row_with(" 1/1 ")
    console.keys("F2", "End", "s", "Enter", "Enter")
    console.ends_with(">echo ones", "ones", ">")
    console.line("cls & history")
    console.shows("xhistory /f", "echo ones", "ver > nul", "echo two", "cls & history", ">")
    console.keys("C-S-PPage")
    console.row_with(" 6/6 ")  # the recalled line has run, and counts
    console.text("console two")
    console.row_with(" echo two", "C:\\t\\console")
    console.keys("C-d", *(["BSpace"] * 11), "C-f", "Up")
    console.row_with(" 4/5 ")
    console.keys("Up", "Up", "F4")
    console.ends_with(">echo one")
    console.keys("Escape")
    console.line("xhistory /b & alias ll=*dir /w & alias al=`ll|cd`")
    console.ends_with("xhistory /f", "echo one", "ver > nul", "echo ones", "cls & history", ">")
    console.text("al & (ll x) && *ll")
    console.keys("C-w")
    console.ends_with(">*dir /w|cd & (*dir /w x) && *ll")
    console.keys("C-F7")
    console.ends_with('Dialog not available in this version "Regex"', ">*dir /w|cd & (*dir /w x) && *ll")
