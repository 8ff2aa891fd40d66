"""Lists in the console: @select and SELECT."""

from registry import case


@case("@select: a list over the screen, filtered by typing; the screen comes back")
def select_function(console):
    console.file("colors.txt", "dark red", "green", "light red", "blue")
    console.start()
    console.line('echo [%@select[colors.txt,"Which color?"]]')
    console.row_with("\u250c Which color? \u2500")
    console.text("red")
    console.row_with(" red ", " 1/2 ")
    console.keys("Down", "Enter")
    console.shows('>echo [%@select[colors.txt,"Which color?"]]', "[light red]", ">")


@case("SELECT runs a command for the marked files, or once with all their names")
def select_command(console):
    for name in ("one.txt", "two words.txt", "three.txt"):
        console.file(name, "x")
    console.start()
    for command, keys, answers in (
        ("select echo (*.txt) !", ("Space", "Down", "Space", "Enter"), ('one.txt !', '"two words.txt" !')),
        ("select /[s0,5K] /f /m echo [*.txt]", ("Enter",), None),
        ("select /1 echo (*.txt)", ("Down", "Enter"), ("three.txt",)),
        ("select echo (*.txt) || echo left", ("Escape",), ("left",)),
        ("truename q: 2> nul & select /n /1 echo (*.txt) & echo %?", ("Enter",), ("echo one.txt", "0")),
    ):
        console.line("cls & " + command)
        console.row_with("Esc leaves")
        console.keys(*keys)
        folder = "C:\\t\\console\\"
        answers = answers or (" ".join((folder + "one.txt", folder + "three.txt", f'"{folder}two words.txt"')),)
        console.shows(*answers, ">")
