"""Makes cases of the examples in the commands' help: a source file of src/commands holds the help of its commands,
and what stands there as examples runs here as one script, among files with which they make sense. Nothing may go to
standard error; what cannot succeed on a machine for tests stands in NOT_RUN."""

import re

from case_file import Case, Section

HELP = re.compile(r"^const CommandHelp (\w+)Help = \{(.*?)\n?\};", re.MULTILINE | re.DOTALL)
TOKEN = re.compile(r'u"((?:[^"\\]|\\.)*)"|,')

# Beginnings of examples that are left out, and why.
NOT_RUN = {
    r"activate|window|keystack|osd|toast|notify|resolution|start [^/]|setp /p|unsetp /p": "needs a desktop",
    "font /|playsound|playavi": "needs fonts, or a player",
    "eset|select": "asks a person",
    "date 2|time 2": "needs rights",
    "delay /b|everything|repeat 10": "takes long",
    r".*\\\\server": "needs a server",
    "chronic /e|exec c:": "needs a program",
    r"assoc \.txt|jumplist|mklink /j|psubst /u|truename x:|ts /|recycle /[lr]": "needs what the tests' system has not got",
}
# What examples write to standard error all the same.
SAY = {
    "echoerr|echoserr|echoxerr|type": ".*",
    "dedupe": "Nobody is there to be asked.*",
    "delete|dir|except|global": '(File not found.*\r\n)*',
    "fsearch": "(The system's index cannot be asked.*\r\n)*",
}
# The lines around the examples (where "*" stands) of those that need more than files.
AROUND = {
    "assoc": "*\nassoc /u .log=",
    "associate": "associate /d\"Log\" .log {{orv}}\n*\nassociate /x .log",
    "attrib": "attrib +r work\\plan.doc\n*",
    "call": "*\nquit\n:copyfiles",
    "caller": "gosub inner\nquit\n:inner\n*\nreturn",
    "cd": "cd work\\lib\\1\n*",
    "defer": "gosub inner\nquit\n:inner\necho x > %temp%\\work.txt\n*\nreturn",
    "dirs": "pushd d:\\\npushd c:\\\n*",
    "endlocal": "setlocal\nsetlocal\nsetlocal\n*",
    "expr": "set n=7\n*",
    "gosub": "(echo :log & echo return) > library.btm\n*\nquit\n:backup\nreturn",
    "goto": "*\n:end",
    "hash": "copy /q {{programs}}\\helpers\\args.exe setup.exe\nechos abc > abc.txt\n*",
    "jobs": "detach linger 5000\ndetach linger 5000\n*",
    "makeDirectory": "rd /s /q backup project\n*",
    "popd": "pushd d:\\\npushd c:\\\n*",
    "pushd": "pushd d:\\\n*",
    "rename": "del /q final.txt\n*",
    "return": "gosub inner\nquit\n:inner\n*",
    "set": "*\nunset /u EDITOR",
    "setarray": "set count=3\n*",
    "shortcut": "shortcut notes.lnk notepad.exe\n*",
    "start": "copy /q {{programs}}\\helpers\\args.exe setup.exe\n*",
    "unalias": "alias d=dir\nalias up=cd ..\nalias x=y\n*",
    "unfunction": "function twice=2\nfunction thrice=3\n*",
    "unset": "set greeting=1\nset folder=1\nset tmp_a=1\nset total=1\n*",
    "unsetarray": "setarray squares[2] table[2]\n*",
    "unsetp": "setp greeting=Hello\n*",
}
# Commands whose examples end the script: each line is a script of its own.
ENDING = ("cancel", "exec", "exit", "goto", "quit", "return")
CONSOLE = ("font", "saveconsole")
FOLDERS = ("build", "empty", "x.tmp")
FILES = r"""
    1.log 1.obj 1.pdb 1.zip 1.jpg 2.jpg a.bin a.c a.cpp a.txt abc.txt b.bin b.c b.h b.htm b.jpeg b.tmp b.txt big.iso
    build.cmd c.bak d.doc draft.txt final.txt library.btm menu.btm new.ini next.btm notes.txt odd.txt old.ini old.txt
    original.txt part1 part2 part3 photo.jpg plan.doc readme.txt report.doc report.xls secret.txt settings.ini setup.btm
    work.lock backup\1.c data\1 inbox\1 include\1.h lib\git.btm lib\hosts.btm logs\1.log mail\1.eml notes\1 old\1
    photos\1.jpg prog\1 project\1 projects\1 releases\2.1\1 src\1.c temp\1.txt tools\bin\1 users\me\1 work\1.doc
    work\bin\1 work\lib\1\1 work\make.btm work\old\1 work\plan.doc d:\album\1 d:\archive\1 d:\backup\1 d:\data\1
    d:\e\mail\1 d:\e\photos\1 d:\e\src\1 d:\logs\1 d:\save\1 d:\text\1 d:\work\1"""


def parse(path, text):
    """A case for each command's help in a source file."""
    cases = []
    for found in HELP.finditer(text):
        fields = [""]
        for token in TOKEN.finditer(found[2]):
            if token[0] == ",":
                fields.append("")
            else:
                fields[-1] += token[1]
        examples = re.sub(r"\\(.)", lambda escape: "\n" if escape[1] == "n" else escape[1], fields[3]).split("\n")
        examples = [line for line in examples if line and not any(re.match(start, line) for start in NOT_RUN)]
        line = text.count("\n", 0, found.start()) + 1
        ending = found[1] in ENDING
        scripts = [[example] for example in examples] if ending else [examples] if examples else []
        cases += [example_case(path, line, found[1], script, not ending) for script in scripts]
    return cases


def example_case(path, line, name, examples, goes_on):
    case = Case(path, f"help of {name}", line, args="one two", is_reference=True)
    examples = [on_the_tests_drives(example) for example in examples] + ["echo The end"] * goes_on
    case.script = Section("script", lines=AROUND.get(name, "*").replace("*", "\n".join(examples)).split("\n"))
    case.stdout = any_text("The end\r\n" if goes_on else "")
    for names, text in SAY.items():
        if re.fullmatch(names, name):
            case.stderr = any_text(text)
    case.console = name in CONSOLE
    case.files = [Section("file", name, lines=["Text of " + name]) for name in FILES.split()]
    case.folders = list(FOLDERS)
    case.stdin = Section("stdin", lines=["y"] * 20, options={"via": "pipe"})
    case.exit_code = None
    case.timeout = 10
    return case


def any_text(with_text):
    return Section("stdout", is_pattern=True, lines=["{{(?s:.*" + with_text + ".*)}}{{noend}}"])


def on_the_tests_drives(line):
    """Folders of C: and E: stand in the case's own folder and on its second drive."""
    line = re.sub(r"(?i)(?:\b|(?<=/d))c:\\(?!windows|documents|program)", r"{{cwd}}\\", line)
    return re.sub(r"(?i)\be:\\", r"D:\\e\\", line)
