"""Keys that scripts press, and small commands for the console."""

from registry import case


@case("KEYSTACK presses keys for whoever reads next, some of them later; an icon needs a taskbar")
def keystack(console):
    read = ["inkey /x %%k", "echos [%k]"]
    console.file(
        "keys.btm", "@echo off", 'keystack ! "a b" F1 Ctrl-F2*2 /w4 65 Enter', *(read * 8), "echo.",
        'keystack "echo typed" Enter',
    )
    console.start()
    console.line("keys.btm")
    console.shows(">keys.btm", "a[a] [ ]b[b][@59][@95][@95]A[A][@28]", ">echo typed", "typed", ">")
    console.line("cls & window tray")
    console.shows('There is no desktop to show anything on "TRAY"', ">")


@case("TRANSIENT keeps a shell and ends it; SAVECONSOLE keeps what is shown; VBEEP leaves the screen as it was")
def small_things(console):
    console.start("/C", "echo hello & transient off", first=["hello", ">"])
    console.line("saveconsole /v a.txt & cls & vbeep 2 20 & type a.txt")
    console.shows("hello", ">saveconsole /v a.txt & cls & vbeep 2 20 & type a.txt", ">")
    console.line("cls red on blue & echo. & echo x & saveconsole /h /v page.html & echo done")
    console.shows("x", "done", ">")
    page = (console.folder / "page.html").read_text(encoding="utf-8").split("\n")
    rows = [row for row in page if "background:#000080" in row]
    console.wait(lambda: len(rows) == 2 and ">x  " in rows[1], ["a blank row and a row, both blue"], lambda: page)
    console.line("transient on")
    console.exits(0)
