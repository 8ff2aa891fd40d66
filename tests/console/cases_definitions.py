"""Variables and aliases at the console: ESET, questions, pauses."""

from registry import case


@case("ESET puts the value on the line and takes what becomes of it")
def edited_value(console):
    console.start(greeting="Hello world")
    console.line("eset greeting")
    console.ends_with("greeting=Hello world", "greeting=Hello world")
    console.keys("BSpace")
    console.text("D!")
    console.ends_with("greeting=Hello worlD!")
    console.keys("Enter")
    console.ends_with("greeting=Hello worlD!", ">")
    console.line("echo [%greeting%]")
    console.ends_with("[Hello worlD!]", ">")


@case("Ctrl+C in ESET leaves the value as it was")
def abandoned_edit(console):
    console.start(greeting="Hello")
    console.line("eset greeting")
    console.ends_with("greeting=Hello", "greeting=Hello")
    console.text("!")
    console.ends_with("greeting=Hello!")
    console.keys("C-c")
    console.ends_with("greeting=Hello!^C", ">")
    console.line("echo [%greeting%]")
    console.ends_with("[Hello]", ">")


@case("ESET /P edits, drops and adds pieces of a search path")
def edited_path(console):
    console.start(places='C:\\a;"C:\\b;c";D:\\d')
    console.line("eset /p places")
    console.ends_with("  1: C:\\a")
    console.text("1")
    console.ends_with("  1: C:\\a1")
    console.keys("Enter")
    console.ends_with('  2: "C:\\b;c"')
    console.keys("Enter")
    console.ends_with("  3: D:\\d")
    console.keys(*["BSpace"] * 4)
    console.ends_with("  3:")
    console.keys("Enter")
    console.ends_with("  4:")
    console.line("E:\\new")
    console.ends_with("  5:")
    console.keys("Enter")
    console.ends_with(">")
    console.line("set places")
    console.ends_with('places=C:\\a1;"C:\\b;c";E:\\new', ">")


@case("ESET /A keeps the blanks in front of an alias's text")
def edited_alias(console):
    console.start("//LocalAliases=Yes", "//GlobalAliases=No")
    console.line("alias hi=` echo one`")
    console.ends_with(">alias hi=` echo one`", ">")
    console.line("eset /a hi")
    console.ends_with("hi= echo one", "hi= echo one")
    console.line(" two")
    console.ends_with(">")
    console.line("alias")
    console.ends_with(">alias", "hi= echo one two", ">")
    console.line("hi three")
    console.ends_with("one two three", ">")


@case("SET /P asks at the console")
def question(console):
    console.start()
    console.line('set /p "answer=Your name: "')
    console.ends_with("Your name:")
    console.line("Bob")
    console.ends_with("Your name: Bob", ">")
    console.line("echo [%answer%]")
    console.ends_with("[Bob]", ">")


@case("/P waits when the screen is full, whatever fills its rows, goes on by lines and screens, and ends with Q")
def pause(console):
    console.start("//LocalAliases=Yes", "//GlobalAliases=No")
    console.file("many.txt", *[f"a{i:02}={i}" for i in range(40)])
    console.shows(">")
    console.line("alias /r many.txt")
    console.ends_with(">alias /r many.txt", ">")
    console.line("alias /p")
    console.ends_with("a28=28", "Any key: more, Enter: a line, Esc: end")
    console.keys("Enter")
    console.ends_with("a29=29", "Any key: more, Enter: a line, Esc: end")
    console.keys("Space")
    console.ends_with("a39=39", ">")
    console.line("alias /p & echo behind it")
    console.ends_with("a28=28", "Any key: more, Enter: a line, Esc: end")
    console.keys("q")
    console.ends_with("a28=28", "behind it", ">")
    console.file("tabs.txt", *[f"{i}" + 10 * "\t" + "x" for i in range(20)])
    console.line("cls & type /p tabs.txt")
    console.ends_with("13", "x", "Any key: more, Enter: a line, Esc: end")
    console.keys("q")
    console.ends_with("13", "x", ">")
    console.line("keys /p list & keys delhistory")
    console.row_with("AddFile", "Keep the completed file name")
    console.keys("q")
    recalled = "DelHistory           Ctrl-D                       Delete the recalled line from"
    console.ends_with(recalled, " " * 50 + "the history", ">")


@case("Ctrl+Z ends the lines that are read from the console, and nothing at the prompt")
def end_of_lines(console):
    console.start("//LocalAliases=Yes", "//GlobalAliases=No")
    console.line('keystack "one=1" Enter 26 Enter 26 Enter & alias /r')
    console.ends_with("one=1", "^Z", ">^Z", ">")
    console.line("alias")
    console.ends_with(">alias", "one=1", ">")


@case("XHISTORY tells what was typed, where, and what came of it; excluded lines are not kept")
def extended_history(console):
    console.start(HistoryExclude="secret*")
    console.line("xhistory /f")
    console.line("(echo marker-one")
    console.ends_with("More?")
    console.line("echo marker-two)")
    console.ends_with("marker-two", ">")
    console.line("secret marker-three")
    console.line("del /e marker-four & echo %@xhistory[0,exit]")
    console.ends_with("0", ">")
    console.line("xhistory /b /t:marker")
    console.ends_with("(echo marker-one", "echo marker-two)", "del /e marker-four & echo %@xhistory[0,exit]", ">")
    console.line("del marker-five > nul")
    console.row_with("marker-five")
    console.line("xhistory /b /e")
    console.ends_with(">xhistory /b /e", "del marker-five > nul", ">")
    console.line("xhistory /t:marker-o /d & xhistory /b /t:marker /d:c:\\")
    console.row_with("  0:00:0", "     0  C:\\t\\console> (echo marker-one")
