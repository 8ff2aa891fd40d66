"""Long work with files: how far it is, and Ctrl+C in the middle of a file."""

from console import Failure
from registry import case


@case("joining files shows how far it is, and Ctrl+C leaves nothing of it")
def broken_join(console):
    console.file("small.txt", "small")
    with open(console.folder / "large.bin", "wb") as file:
        file.truncate(8 << 30)  # far more than is ever copied, and takes no room
    console.start()
    console.shows(">")
    console.line("copy /b /g small.txt+small.txt twice > told.txt & cls & type told.txt")
    console.shows("small.txt -> twice", "small.txt -> twice", "     2 files copied", ">")
    console.line("copy /b /g large.bin+small.txt joined.bin")
    console.row_with("large.bin", " MB")
    console.keys("C-c")
    console.ends_with("^C", "Broken off. What is not named was left as it was; nothing is half done.",
                      "     no files copied", ">")
    left = sorted(path.name for path in console.folder.iterdir())
    if left != ["large.bin", "small.txt", "told.txt", "twice"]:
        raise Failure(f"left behind: {left}")
