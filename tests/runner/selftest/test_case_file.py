import unittest

import case_file
import reference_page

EVERYTHING = r"""# A comment.

=== the first
args: a "b c"
host: /X //CommandSep=!
ini: EvalMin=2
echo: yes
ini: EscapeChar=~
env TEMP=C:\x=y
env PATH=
file sub\x y.txt: hello: you
folder empty
type: bat
encoding: cp1252
console: yes
timeout: 2.5
known-gap: not yet
# A comment between the headers.
--- script eol=lf
echo a

\--- not a section
\\=== nor a case
--- file other.txt encoding=utf-16 eol=lf
{{bom}}x
--- stdin via=pipe
yes
--- stdout ~ encoding=utf-16
{{.*}}

--- stderr
--- exit -1
--- file-after a b.txt ~
x
--- no-file gone.txt

=== the second
commands: echo & ver
"""


class Parsing(unittest.TestCase):
    def test_everything(self):
        first, second = case_file.parse("x.case", EVERYTHING)
        self.assertEqual((first.name, first.line, first.args), ("the first", 3, 'a "b c"'))
        self.assertEqual(first.host, "/X //CommandSep=!")
        self.assertEqual(first.ini, ["EvalMin=2", "EscapeChar=~"])
        self.assertEqual(first.environment, [("TEMP", "C:\\x=y"), ("PATH", "")])
        self.assertEqual(first.folders, ["empty"])
        self.assertEqual((first.script_type, first.script_encoding), ("bat", "cp1252"))
        self.assertEqual((first.echo, first.console, first.timeout, first.known_gap), (True, True, 2.5, "not yet"))
        self.assertEqual(first.script.lines, ["echo a", "", "--- not a section", "\\=== nor a case"])
        self.assertEqual(first.script.line_end, "\n")
        self.assertEqual([file.name for file in first.files], ["sub\\x y.txt", "other.txt"])
        self.assertEqual([file.lines for file in first.files], [["hello: you"], ["{{bom}}x"]])
        self.assertEqual(first.files[1].options, {"encoding": "utf-16", "eol": "lf"})
        self.assertEqual(first.stdin.options, {"via": "pipe"})
        self.assertTrue(first.stdout.is_pattern)
        self.assertEqual(first.stdout.lines, ["{{.*}}", ""])
        self.assertEqual(first.stdout.heading(), "--- stdout encoding=utf-16 ~")
        self.assertEqual((first.stderr.lines, first.exit_code), ([], 0xFFFFFFFF))
        self.assertEqual([(file.name, file.is_pattern) for file in first.files_after], [("a b.txt", True)])
        self.assertEqual(first.no_files, ["gone.txt"])
        self.assertEqual((second.commands, second.script, second.exit_code, second.echo), ("echo & ver", None, 0, False))

    def test_one_blank_line_before_the_next_case_is_no_content(self):
        rows = [("a\n", ["a"]), ("a\n\n", ["a"]), ("a\n\n\n", ["a", ""]), ("\n\n", [""]), ("", [])]
        for text, lines in rows:
            for rest in ("", "=== b\n"):
                with self.subTest(text=text, rest=rest):
                    self.assertEqual(case_file.parse("x", f"=== a\n--- stdout\n{text}{rest}")[0].stdout.lines, lines)

    def test_encodings_keep_any_bytes(self):
        for name in ("utf-8", "utf-16", "utf-16be", "cp437", "cp1252", "ascii"):
            section = case_file.Section("stdout", options={"encoding": name})
            data = bytes(range(256)) + b"\xd8\x00"
            with self.subTest(name):
                self.assertEqual(section.encode(section.decode(data, "utf-8"), "utf-8"), data)

    def test_mistakes_are_found(self):
        mistakes = [
            "echo",
            "=== a\nargs a",
            "=== a\ncolour: red",
            "=== a\ntype: exe",
            "=== a\nknown-gap:",
            "=== a\nencoding: utf-99",
            "=== a\ntimeout: soon",
            "=== a\n--- output",
            "=== a\n--- exit one",
            "=== a\n--- exit 1\nx",
            "=== a\n--- stdout\n--- stdout",
            "=== a\n--- stdout eol=cr",
            "=== a\n--- file",
            "=== a\ncommands: x\n--- script\ny",
            "=== a\n\n=== a",
        ]
        for text in mistakes:
            with self.subTest(text=text), self.assertRaises(case_file.CaseError):
                case_file.parse("x.case", text)


class ReferencePage(unittest.TestCase):
    def test_examples_become_one_script(self):
        page = "# T\n~~~file a b.txt\n> x\n~~~\n## @x\n~~~orv\n> echo 1\n1\n>\n> echo 2\n~~~\n~~~orv\n> dir\n{{x+}}\n~~~\n"
        (case,) = reference_page.parse("p.md", page)
        self.assertEqual(case.script.lines, ["echo 1", "", "echo 2", "dir"])
        self.assertEqual((case.stdout.lines, case.stdout.is_pattern), (["1", "{{x+}}"], True))
        self.assertEqual([(file.name, file.lines) for file in case.files], [("a b.txt", ["> x"])])

    def test_faults_are_told_with_their_line(self):
        for page in ("~~~orv\n1\n~~~\n", "~~~orv\n> echo\n"):
            with self.assertRaisesRegex(case_file.CaseError, "p.md:[12]: "):
                reference_page.parse("p.md", page)
