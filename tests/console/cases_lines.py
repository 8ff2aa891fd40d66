"""Typed lines: prompt, breaks, continuation, what the shell remembers."""

from registry import case


@case("a prompt appears, typed commands run, exit ends the shell with its code")
def prompt(console):
    console.start(PROMPT=None)
    console.shows("C:\\t\\console>")
    console.line("echo one & echo two")
    console.ends_with("one", "two", "C:\\t\\console>")
    console.line("exit 7")
    console.exits(7)


@case("the prompt is expanded anew each time")
def changing_prompt(console):
    console.start(PROMPT="[%x%]")
    console.shows("[]")
    console.line("set x=5")
    console.shows("[]set x=5", "[5]")


@case("Ctrl+C gives a fresh prompt wherever it is pressed")
def breaks(console):
    console.file("alpha.txt", "first")
    console.file("alps.txt", "second")
    console.start("//LocalHistory=Yes")
    console.shows(">")
    console.keys("C-c")
    console.shows(">^C", ">")
    console.text("echo wrong")
    console.shows(">^C", ">echo wrong")
    console.keys("C-c")
    console.shows(">^C", ">echo wrong^C", ">")
    console.line("cls & echo top")
    console.shows("top", ">")
    console.text("type al")
    console.keys("Tab")
    console.shows("top", ">type alpha.txt")
    console.keys("C-c")
    console.shows("top", ">type alpha.txt^C", ">")
    for keys in (("F7",), ("PPage",)):  # a window of names, and one of the history
        console.line("cls & echo top")
        console.shows("top", ">")
        console.text("type al")
        console.keys(*keys)
        console.row_with("\u2514", "/2 " if keys == ("F7",) else "/")
        console.keys("C-c")
        console.shows("top", ">type al^C", ">")
    for loop in ("for /l %i in (1,1,99999) do @if %i == 9 delay 60", "do forever (echo x > nul)",
                 "for %i in (1 2) do pause Now?", "delay 60 | echo piped > nul"):
        console.line("cls & echo " + loop[:5] + " & " + loop)
        console.wait(lambda: console.rows()[:1] == [loop[:5].strip()], [loop[:5]], console.rows)
        console.keys("C-c")
        console.wait(lambda: console.rows()[-2:] in (["^C", ">"], ["Now?^C", ">"]), ["^C", ">"], console.rows)
    console.line("cls & echo right")
    console.shows("right", ">")


@case("a line goes on behind the escape character, and Ctrl+C there abandons all of it")
def continuation(console):
    console.start()
    console.shows(">")
    console.line("echo one ^")
    console.ends_with("More?")
    console.line("two")
    console.ends_with("More? two", "one two", ">")
    console.line("echo three ^")
    console.ends_with("More?")
    console.keys("C-c")
    console.ends_with("More? ^C", ">")


@case("the continuation prompt is that of PROMPT2")
def own_continuation_prompt(console):
    console.start(PROMPT2="$P:")
    console.shows(">")
    console.line("(")
    console.ends_with("C:\\t\\console:")
    console.line("echo inside")
    console.ends_with("C:\\t\\console:echo inside", "C:\\t\\console:")
    console.line(")")
    console.ends_with("inside", ">")


@case("Ctrl+Z ends a line, not the shell")
def end_mark(console):
    console.start()
    console.shows(">")
    console.keys("C-z", "Enter")
    console.line("echo alive")
    console.ends_with("alive", ">")


@case("quick substitution edits the line before, and %! is that line's last word")
def previous_line(console):
    console.start()
    console.shows(">")
    console.line("echo one two")
    console.ends_with("one two", ">")
    console.line("!two!three!")
    console.ends_with("one three", ">")
    console.line("!one!four!")
    console.ends_with("four three", ">")
    console.line("echo %!")
    console.ends_with("three", ">")


@case("a program gets its own Ctrl+C, and the rest of the line is abandoned when it has ended")
def broken_program(console):
    console.start()
    console.shows(">")
    # The program is another shell, so that it can be seen to run before the key is pressed.
    console.line('C:\\orv\\ORV.exe /c "echo started & delay 60 & echo not reached" & echo nor this')
    console.ends_with("started")
    console.keys("C-c")
    console.ends_with("started", "^C", "^C", ">")
