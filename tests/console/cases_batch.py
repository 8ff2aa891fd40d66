"""Batch files and the person: breaks and the question behind them."""

from registry import case


def start_in_loop(console, *arguments):
    console.file("outer.btm", "@echo off", "call inner.btm & echo behind the call", "echo outer goes on")
    console.file("inner.btm", "defer echo deferred", "echo inner", "delay 60", "echo inner goes on")
    console.start(*arguments)
    console.line("outer.btm & echo end of the line")
    console.ends_with("inner")
    console.keys("C-c")


@case("Ctrl+C in a batch file asks; No goes on with the next line")
def break_no(console):
    start_in_loop(console)
    console.ends_with("^C", "Cancel batch file C:\\t\\console\\inner.btm (Yes/No/All)?")
    console.keys("n")
    console.ends_with("inner goes on", "deferred", "behind the call", "outer goes on", "end of the line", ">")


@case("Yes ends the batch file and goes on in its caller")
def break_yes(console):
    start_in_loop(console)
    console.ends_with("^C", "Cancel batch file C:\\t\\console\\inner.btm (Yes/No/All)?")
    console.keys("y")
    console.ends_with("deferred", "behind the call", "outer goes on", "end of the line", ">")


@case("All ends every batch file and the line that started them")
def break_all(console):
    start_in_loop(console)
    console.ends_with("^C", "Cancel batch file C:\\t\\console\\inner.btm (Yes/No/All)?")
    console.keys("a")
    console.ends_with("Cancel batch file C:\\t\\console\\inner.btm (Yes/No/All)? A", "deferred", ">")
    console.line("echo alive")
    console.ends_with("alive", ">")


@case("with AutoCancel nothing is asked")
def auto_cancel(console):
    start_in_loop(console, "//AutoCancel=Yes")
    console.ends_with("inner", "^C", "deferred", ">")


@case("ON BREAK takes the place of the question; of a called file the caller's command counts")
def on_break(console):
    console.file("outer.btm", "@echo off", "on break (echo caught %_batchname & goto end)",
                 "call inner.btm", "echo not reached", ":end", "on break gosub again", "echo loop", "delay 60",
                 "echo goes on", "quit", ":again", "echo in the subroutine", "return")
    console.file("inner.btm", "defer echo deferred", "echo inner", "delay 60", "echo not reached")
    console.start()
    console.line("outer.btm & echo end of the line")
    console.ends_with("inner")
    console.keys("C-c")
    console.ends_with("^C", "deferred", "caught C:\\t\\console\\outer.btm", "loop")
    console.keys("C-c")
    console.ends_with("^C", "in the subroutine", "goes on", "end of the line", ">")
