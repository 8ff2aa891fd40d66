"""What SCREEN, SCRPUT, VSCRPUT and the DRAW commands put on the screen."""

from registry import case


@case("boxes and lines join where they meet, texts stand at their places")
def drawing(console):
    console.file(
        "draw.btm",
        "@echo off",
        "cls",
        "drawbox 1 2 7 20 1 bright white on blue",
        "drawbox 1 12 4 30 2",
        "drawhline 5 2 19 1",
        "drawvline 1 6 7 2",
        "scrput 2 3 red on black Hi",
        "vscrput 2 4 down",
        "vscrput 2 79 a%@char[26085]b",
        "scrput 999 999 \" <mid> \"",
        "screen 10 3 cursor",
        "scrput +1 -2 there",
        "screen 12 0",
        "drawhline 9 75 99 2",
        "drawbox 9 9 8 20 1 >& refused.txt",
        "scrput -20 0 x >>& refused.txt",
    )
    console.start()
    console.line("draw")
    console.shows(
        "  ┌───╥─────╦═══════╤═════════╗",
        "  │Hd ║     ║       │         ║".ljust(79) + "a",
        "  │ o ║     ║       │         ║",
        "  │ w ║     ╚═══════╪═════════╝".ljust(79) + "b",
        "  ├─n─╫─────────────┤",
        "  │   ║             │",
        "  └───╨─────────────┘",
        "                                                                           ═════",
        "   cursor",
        "       there",
        ">",
        "                                     <mid>",
    )
    console.has_colors("\x1b[31m")
    console.line("type refused.txt")
    console.row_with("Not below and right of the first corner of the box \"8 20\"")
    console.row_with("Not on the screen \"-20\"")
