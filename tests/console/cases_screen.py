"""The window: title, colours, clearing."""

from registry import case


@case("the window title names the command that runs")
def running_title(console):
    console.start()
    console.line("title Mine")
    console.has_title("Mine")
    console.line("delay 60")
    console.has_title("Mine - delay 60")
    console.keys("C-c")
    console.has_title("Mine")
    console.line('title "two" "names"')
    console.has_title('"two" "names"')


@case("the window title stays as it is with UpdateTitle=No")
def standing_title(console):
    console.start("//UpdateTitle=No")
    console.line('title "A title" & pause')
    console.ends_with("Press any key when ready...")
    console.has_title("A title")


@case("TITLEPROMPT is the title at each prompt, with PROMPT's codes")
def prompted_title(console):
    console.start(TITLEPROMPT="in $P")
    console.has_title("in C:\\t\\console")
    console.line("md sub 2>nul & cd \\")
    console.has_title("in C:\\")


@case("COLOR paints the screen, and puts the old colours back")
def colors(console):
    console.start()
    console.line("color bright white on blue")
    console.has_colors("\x1b[97m\x1b[44m")
    console.line("color 4E")
    console.has_colors("\x1b[93m\x1b[41m")
    console.line("color")
    console.shows(">color bright white on blue", ">color 4E", ">color", ">")
    console.wait(lambda: "\x1b[41m" not in console.colors(), ["no red"], lambda: [repr(console.colors())])


@case("CLS clears the screen and may colour it")
def clear(console):
    console.start()
    console.line("echo some text")
    console.ends_with("some text", ">")
    console.line("cls bright yellow on red")
    console.shows(">")
    console.has_colors("\x1b[93m\x1b[41m")


@case("StdColors are the colours from the start, and those that COLOR goes back to")
def standard_colors(console):
    console.file("colors.ini", "StdColors=Bright White on Blue")
    console.start("@colors.ini")
    console.has_colors("\x1b[97m\x1b[44m>")
    console.line("color 4e")
    console.has_colors("\x1b[93m\x1b[41m")
    console.line("color")
    console.wait(lambda: "\x1b[41m" not in console.colors(), ["no red"], lambda: [repr(console.colors())])
    console.has_colors("\x1b[97m\x1b[44m>")
    console.line("cls bri gre on cya")
    console.has_colors("\x1b[92m\x1b[46m")
    console.line("option /d stdcolors")
    console.has_colors("\x1b[49m>")


@case("the copyright line, what is typed and errors in their own colours")
def greeting(console):
    console.file("look.ini", "InputColors=bright yellow on black", "ErrorColors=bright red on black")
    console.start("@look.ini", "//Copyright=Yes", first=["ORV 33.0", "Copyright 2026 the Movacore authors", ">"])
    console.line("no_such_thing")
    console.ends_with('Unknown command "no_such_thing"', ">")
    console.has_colors("\x1b[93mno_such")
    console.has_colors("\x1b[91mUnknown")


@case("DIR shows names in the colours of ColorDir, and TYPE sets tabs as TabStops says")
def colored_names(console):
    console.file("look.ini", "ColorDir=txt:bright green; ini:red on white", "TabStops=3")
    console.file("a.txt", "x\ty")
    console.start("@look.ini")
    console.line("dir /w/h/k/m & type a.txt & dir /b *.txt")
    console.ends_with("a.txt     look.ini", "x  y", "a.txt", ">")
    console.has_colors("\x1b[92ma.txt\x1b[39m")
    console.has_colors("\x1b[31m\x1b[47mlook.ini")
