"""The first hour of somebody who has the shell before them: one session, from the first prompt to the second start.

A step tells what the person does, which keys that takes, and what the screen ends with then. Names of keys stand
in braces. Rows in `Seen(...)` may stand anywhere: each holds all the parts.
"""

from console import Seen
from registry import case

FOLDER = "C:\\t\\console"
CANCEL = f"Cancel batch file {FOLDER}\\ask.btm (Yes/No/All)?"
NEVER = "".join(f"echo never {number}\n" for number in range(600)) + "echo last"
LONG = "0123456789" * 9

SETTINGS = (
    f"HistFile={FOLDER}\\history.txt", "LocalHistory=Yes", "LocalDirHistory=Yes", "LocalAliases=Yes",
    "GlobalAliases=No", "EditMode=InitInsert", "SyntaxColors=Yes", "CompleteInternals=Yes", "CompletePercents=Yes",
    # The terminal has no keys for these.
    "Undo=Alt-Z", "Redo=Alt-Y",
)

FILES = {
    "alpha one.txt": ("first",),
    "alps.txt": ("second",),
    "slow.btm": ("@echo off", "on break delay 1", "echo started", "delay 60"),
    "ask.btm": ("@echo off", "input Name: %%name", "inkey Sure? %%key", "pause Ready?", "echo [%name%][%key%]",
                "echo last line"),
}

HOUR = (
    # Typing and correcting
    ("what is typed runs with Enter", "echo hello & echo world{Enter}", "hello", "world", ">"),
    ("a slip is mended where it stands", "ecko one thre{Home}{Right}{Right}{DC}h{End}e", ">echo one three"),
    ("Ctrl-Left and Ctrl-Right go from word to word", "{C-Left}two {C-Left}{C-Right}and ", ">echo one two and three"),
    ("Ctrl-L takes one away", "{C-l}", ">echo one two three"),
    ("that is undone", "{M-z}", ">echo one two and three"),
    ("and that is done again", "{M-y}", ">echo one two three"),
    ("Ins changes to typing over", "{End}{C-Left}{IC}TH", ">echo one two THree"),
    ("which is over with the line", "{Enter}", "one two THree", ">"),
    ("Esc empties the line", "echo something else", ">echo something else"),
    ("so that it is as before", "{Escape}", ">"),
    ("a mistake is told, and the next line is a fresh one", "ecko one{Enter}", 'Unknown command "ecko"', ">"),
    ("what was left out, too, and rows break between words", "ren a{Enter}",
     "Usage: REN [range ...] [/A[:]attributes] [/E] [/N] [/P] [/Q] [/S] [/T] name ...", "         newname", ">"),
    # Names
    ("Tab completes a command", "hist{Tab}", ">history"),
    ("Esc takes it away", "{Escape}", ">"),
    ("and variables, behind a percent sign", "echo %comsp{Tab}", ">echo %ComSpec%"),
    ("and functions of variables", " %@repl{Tab}", ">echo %ComSpec% %@replace["),
    ("switches are explained in a window", "{Escape}dir /", ">dir /"),
    ("which F7 opens", "{F7}", Seen("/Q ", "owners")),
    ("typing looks for what a switch does", "owners", Seen(" 1/1 ")),
    ("Enter takes it", "{Enter}", ">dir /q"),
    ("a name with a blank comes in quotes", "{Escape}type al{Tab}", '>type "alpha one.txt"'),
    ("Tab goes on to the next", "{Tab}", ">type alps.txt"),
    ("Shift-Tab back", "{BTab}", '>type "alpha one.txt"'),
    ("where FOR would take a name in quotes for a text it is told", "{Escape}for /f %i in (al{Tab}",
     '>for /f "usebackq" %i in ("alpha one.txt"'),
    ("so that the line runs as it is meant", ") do echo %i{Enter}", "first", ">"),
    ("F7 offers all of them", "type al{F7}", Seen("alps.txt", "\u2502")),
    ("Ctrl+C leaves window and line", "{C-c}", ">type al^C", ">"),
    ("so it opens once more", "type al{F7}", Seen("alps.txt", "\u2502")),
    ("for a name to be picked, and the line to run", "{Down}{Enter}{Enter}", ">type alps.txt", "second", ">"),
    ("a directory is made", "md sub{Enter}", "Made sub", ">"),
    ("its name completed", "cd s{Tab}", ">cd sub"),
    ("and the directory entered", " & cd{Enter}", f"{FOLDER}\\sub", ">"),
    ("cd - goes back", "cd -{Enter}", ">cd -", ">"),
    ("where it was, Ctrl-Up knows", "rd {C-Up}", f">rd {FOLDER}\\sub"),
    ("and F6, in a window", "{Escape}rd {F6}", Seen(f"{FOLDER}\\sub", "\u2502")),
    ("where one is picked, and goes", "sub{Enter}{Enter}", f"Removed {FOLDER}\\sub", ">"),
    # Recalling
    ("Up brings the last line", "cls{Enter}{Up}{Up}", f">rd {FOLDER}\\sub"),
    ("what is typed first says which lines it brings", "{Escape}echo{Up}{Up}", ">echo hello & echo world"),
    ("Down comes back; in grey stands what the history would make of it", "{Down}{Down}", ">echo one two THree"),
    ("Right takes it", "{Right}!{Enter}", "one two THree!", ">"),
    ("F3 brings the rest of the last line behind what was typed", "type{F3}", ">type one two THree!"),
    ("a window shows all lines", "{Escape}{PPage}", Seen("echo one two THree", "\u2502")),
    ("typing finds one", "hello", Seen(" 1/1 ")),
    ("Enter runs it", "{Enter}", ">echo hello & echo world", "hello", "world", ">"),
    ("what is recalled and run is kept once",
     "cls & history 3{Enter}", "cls", "echo one two THree!", "cls & history 3", ">"),
    # Aliases, variables, loops
    ("an alias is made", "alias greet=echo Hello,{Enter}", ">alias greet=echo Hello,", ">"),
    ("and used, along with a variable", "set name=World & greet %name%!{Enter}", "Hello, World!", ">"),
    ("a line goes on behind an escape character", "echo one ^{Enter}", "More?"),
    ("and runs with its end", "two{Enter}", "More? two", "one two", ">"),
    ("a loop is typed in several lines", "do i=1 to 3{Enter}", "More?"),
    ("with its body", "echo line %i{Enter}", "More? echo line %i", "More?"),
    ("and runs when it is closed", "enddo{Enter}", "More? enddo", "line 1", "line 2", "line 3", ">"),
    ("another one is not closed", "for %i in (1 2) do ({Enter}", "More?"),
    ("Ctrl+C gives up all of it", "{C-c}", "More? ^C", ">"),
    ("in a block that is passed over", "iff 1 == 2 then{Enter}", "More?"),
    ("nothing runs", "echo no{Enter}", "More? echo no", "More?"),
    ("up to its end", "endiff{Enter}", "More? endiff", ">"),
    ("pasted lines are shown as they are", "echo first\rdelay 60\recho never", ">echo first", "delay 60", "echo never"),
    ("one that takes long", "{Enter}", "first", ">delay 60"),
    ("is broken off", "{C-c}", ">delay 60", "^C", ">"),
    ("along with those behind it", "echo fresh{Enter}", "^C", ">echo fresh", "fresh", ">"),
    ("several pasted lines wait for Enter", "echo first\recho second\recho third",
     ">echo first", "echo second", "echo third"),
    ("and run one by one", "{Enter}", "first", ">echo second", "second", ">echo third", "third", ">"),
    ("a paste of many lines", NEVER, "echo never 599", "echo last"),
    ("Ctrl+C gives it up", "{C-c}", "echo last^C", ">"),
    ("the line before runs again with a word changed", "!third!fourth!{Enter}", "fourth", ">"),
    ("and its last word is there for the next", "echo %! again{Enter}", "fourth again", ">"),
    # Files and programs
    ("output goes into a file, and more of it", "(echo c & echo a) > list & echo b >> list & type list{Enter}",
     "c", "a", "b", ">"),
    ("a pipe goes into a program", "cls & type list | C:\\orv\\helpers\\sortlines{Enter}", "a", "b", "c", ">"),
    ("a program is found by its name", "path C:\\orv\\helpers & args one \"two three\"{Enter}",
     "[one]", "[two three]", ">"),
    ("what it does to the console does not harm the next", "disorder & echo is filled & echo ok{Enter}",
     "half a rowis filled", "ok", ">"),
    # Questions in a batch file
    ("a batch file asks", "ask{Enter}", "Name:"),
    ("and is answered in part", "Bo", "Name: Bo"),
    ("Ctrl+C there asks whether it is to end", "{C-c}", "Name: Bo^C", CANCEL),
    ("No goes on with its next line", "n", "Sure?"),
    ("Ctrl+C where a key is asked for", "{C-c}", "Sure? ^C", CANCEL),
    ("No goes on again", "n", "Ready?"),
    ("Ctrl+C where any key would do", "{C-c}", "Ready?^C", CANCEL),
    ("No goes on to the end", "n", "[World][]", "last line", ">"),
    ("the batch file asks again", "ask{Enter}", "Name:"),
    ("a line is an answer", "Bob{Enter}", "Name: Bob", "Sure?"),
    ("and a key", "y", "Ready?"),
    ("Ctrl+C again, for the last time", "{C-c}", CANCEL),
    ("Yes ends it", "y", ">"),
    # Ctrl+C in whatever runs
    ("a long listing runs", "dir /s" + 20 * " C:\\" + "{Enter}", Seen("<DIR>")),
    ("Ctrl+C ends it", "{C-c}", "^C", ">"),
    ("a loop without end", "cls & for /l %i in (1,1,999999) do echo round %i{Enter}", Seen("round 2")),
    ("Ctrl+C ends it", "{C-c}", "^C", ">"),

    ("at the bottom of the screen a line that is longer than the window goes on below", f"echo {LONG}",
     f">echo {LONG[:74]}", LONG[74:]),
    ("and is changed in its first row", "{Home}{C-Right}[", f">echo [{LONG[:73]}", LONG[73:]),
    ("Ctrl+C leaves it there", "{C-c}", f"{LONG[73:]}^C", ">"),
    ("a program takes its time", "C:\\orv\\ORV /c slow & echo no{Enter}", "started"),
    ("Ctrl+C is told to it, too, and the rest of the line does not run", "{C-c}", "started", "^C", "^C", ">"),
    ("a pipe waits", "cls & delay 60 | echo piped{Enter}", "piped"),
    ("Ctrl+C ends both of its sides", "{C-c}", "^C", ">"),
    ("a copy shows how far it is", "copy /b /g large.bin+list joined.bin{Enter}", Seen("large.bin", " MB")),
    ("Ctrl+C leaves nothing of it", "{C-c}", "^C",
     "Broken off. What is not named was left as it was; nothing is half done.",
     "     no files copied", ">"),
    ("as can be seen", "dir /b *.bin{Enter}", ">dir /b *.bin", "large.bin", ">"),
    ("in a file stands only what was copied", "copy /b /g list+list told > log & cls & type log{Enter}",
     "list -> told", "list -> told", "     2 files copied", ">"),
    # Help
    ("F1 tells about the command under the cursor", "echo no & popd x{F1}",
     "Examples", "  popd", "  popd *", ">echo no & popd x"),
    ("and about the function in whose brackets it is",
     "{Escape}echo %@len[{F1}", Seen("  %@len[text]"), ">echo %@len["),
    ("HELP tells what there is, a screen at a time", "{Escape}help{Enter}", "Any key: more, Enter: a line, Esc: end"),
    ("until Ctrl+C ends that", "{C-c}", "Any key: more, Enter: a line, Esc: end^C", ">"),
    # Other languages
    ("wide characters are typed", "echo \u65e5\u672c\u8a9e{Enter}", "\u65e5\u672c\u8a9e", ">"),
    ("and corrected as others are", "echo \u65e5\u672c{Left}{BSpace}\u8a9e{Enter}", "\u8a9e\u672c", ">"),
)


@case("the first hour")
def first_hour(console):
    console.file("hour.ini", *SETTINGS)
    for name, lines in FILES.items():
        console.file(name, *lines)
    with open(console.folder / "large.bin", "wb") as file:
        file.truncate(8 << 30)  # far more than is ever copied, and takes no room
    console.start("@hour.ini")
    for step in HOUR:
        console.step(*step)
    console.text("rem ")
    console.has_colors("\x1b[93mrem")
    console.step("Ctrl+C does not end the shell", "{C-c}", ">rem ^C", ">")
    console.line("exit 7")
    console.exits(7)
    console.close()
    console.start("@hour.ini", PROMPT=None)
    console.shows(f"{FOLDER}>")
    console.step("the next morning the history is there", "echo h{Up}", f"{FOLDER}>echo hello & echo world")
