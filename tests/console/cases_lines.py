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


@case("Ctrl+C abandons the line that is being typed")
def abandoned_line(console):
    console.start()
    console.shows(">")
    console.text("echo wrong")
    console.shows(">echo wrong")
    console.keys("C-c")
    console.ends_with(">echo wrong^C", ">")
    console.line("echo right")
    console.ends_with(">echo right", "right", ">")


@case("Ctrl+C at an empty prompt gives a fresh one")
def idle_break(console):
    console.start()
    console.shows(">")
    console.keys("C-c")
    console.shows(">^C", ">")
    console.keys("C-c")
    console.shows(">^C", ">^C", ">")


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
