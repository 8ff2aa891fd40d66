"""The windows of the histories."""

from registry import case


@case("the windows of the histories: filters, changes, deletions; aliases in all commands of a line")
def history_window(console):
    console.start("//LocalHistory=Yes", "//XHistEdit=F4")
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
    console.text("al & (ll x) && *ll & for %i in (ll) do if a==b (ll) else do 2 (call ll)")
    console.keys("C-w")
    rows = (">*dir /w|cd & (*dir /w x) && *ll & for %i in (ll) do if a==b (*dir /w) else do 2",
            " (call *dir /w)")
    console.ends_with(*rows)
    console.keys("C-F7")
    console.ends_with('Dialog not available in this version "Regex"', *rows)
