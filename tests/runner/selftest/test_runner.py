"""The runner from end to end, with helper programs in the place of the shell."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

RUNNER = Path(__file__).resolve().parents[1]
HELPERS = "C:\\orv\\helpers\\"


def run(shell, text, *options):
    """Returns the runner's output, its exit code and the case file as it is afterwards."""
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder) / "self.case"
        file.write_text(text, encoding="utf-8")
        command = [sys.executable, RUNNER, "--shell", HELPERS + shell, "-j", "1", *options, file]
        done = subprocess.run(command, capture_output=True, encoding="utf-8", check=False)
        if done.stderr:
            raise AssertionError(done.stderr)
        return done.stdout, done.returncode, file.read_text(encoding="utf-8")


class Running(unittest.TestCase):
    def check(self, shell, text, summary, *parts):
        output, code, _ = run(shell, text)
        self.assertEqual(output.splitlines()[-1], summary, output)
        self.assertEqual(code, 0 if " 0 failed" in summary else 1)
        for part in parts:
            self.assertIn(part, output)

    def test_streams_and_full_exit_codes(self):
        text = """=== both streams
host: "some text" error 0xC0000005
--- stdout
some text
--- stderr ~
e{{r+}}or
--- exit 0xC0000005

=== negative
host: "" "" 0xFFFFFFFF
--- exit -1

=== nothing
"""
        self.check("emit.exe", text, "3 passed, 0 failed")

    def test_each_unmet_expectation_fails(self):
        text = """=== output that nobody expects
host: text
=== missing output
--- stdout
text
=== unexpected error output
host: "" text
=== exit code
host: "" "" 7
=== one line too many
host: text
--- stdout
text

--- exit 0
=== pattern
host: text
--- stdout ~
{{[a-d]+}}
=== missing file
--- file-after gone.txt
=== file that should not be
file here.txt: x
--- no-file here.txt
=== content of a file
file here.txt: x
--- file-after here.txt
y
=== misspelt token
--- stdout
{{cdw}}
"""
        self.check("emit.exe", text, "0 passed, 10 failed", "expected 0, got 7", "-y", "+x", "no token {{cdw}}")

    def test_what_the_shell_is_given(self):
        text = """=== script with arguments
args: one "two  three" ^& %x%
--- script
x
--- stdout
[/C]
[{{script}}]
[one]
[two  three]
[^&]
[%x%]

=== commands
commands: echo "a b" & ver > nul
--- stdout
[/C]
[echo]
[a b]
[&]
[ver]
[>]
[nul]
"""
        self.check("args.exe", text, "2 passed, 0 failed")

    def test_environment(self):
        text = """=== fixed, changed and taken away
host: COMSPEC TEMP FOO TMP HOME
env FOO=a=b
env TMP=
--- stdout
COMSPEC={{orv}}
TEMP={{temp}}
FOO=a=b
TMP
HOME
"""
        self.check("showenv.exe", text, "1 passed, 0 failed")

    def test_standard_input(self):
        text = """=== empty unless given
--- stdout
0

=== file
stdin: 12345
--- stdout
7

=== pipe, without an end of line
--- stdin via=pipe
12345{{noend}}
--- stdout
5

=== encodings
--- stdin encoding=utf-16 eol=lf
{{bom}}a
--- stdout
6
"""
        self.check("countbytes.exe", text, "4 passed, 0 failed")

    def test_output_encodings(self):
        text = """=== bytes in UTF-16
host: /x FFFE610000D80D000A00
--- stdout encoding=utf-16
{{bom}}a{{u+D800}}

=== malformed UTF-8 and a lone line feed
host: /x C3A9FF0A
--- stdout encoding=utf-8
é{{x+FF}}{{lf}}{{noend}}

=== line feeds for line ends
host: /x 610A620A
--- stdout eol=lf
a
b
"""
        self.check("emit.exe", text, "3 passed, 0 failed")

    def test_time_limit_ends_the_case_and_the_run_goes_on(self):
        text = """=== too long
host: 60000
timeout: 0.3

=== the next one
host: 0 5
--- exit 5
"""
        self.check("linger.exe", text, "1 passed, 1 failed", "still running after 0.3 s")

    def test_known_gaps(self):
        text = """=== a gap
known-gap: the helper cannot do this
host: text

=== no gap any more
known-gap: it was one
host: text
--- stdout
text
"""
        self.check("emit.exe", text, "0 passed, 1 failed, 1 skipped", "passes now: it was one")

    def test_unreadable_file(self):
        self.check("emit.exe", "=== a\nnonsense\n", "0 passed, 1 failed", "self.case:2: not a header: nonsense")

    def test_blessing(self):
        text = """=== new sections
host: "a  b " err 3

=== wrong sections
host: /x 2D2D2D20780D0A620D0A
--- stdout ~
{{y+}}

--- stderr
z
--- exit 4

=== good already
host: text
--- stdout ~
t{{.*}}
"""
        _, _, blessed = run("emit.exe", text, "--bless")
        expected = """=== new sections
host: "a  b " err 3
--- stdout
a  b{{sp}}
--- stderr
err
--- exit 3

=== wrong sections
host: /x 2D2D2D20780D0A620D0A
--- stdout
\\--- x
b
--- stderr
--- exit 0

=== good already
host: text
--- stdout ~
t{{.*}}
"""
        self.assertEqual(blessed, expected)
        self.check("emit.exe", blessed, "3 passed, 0 failed")

    def test_pattern_selects_cases(self):
        output, _, _ = run("emit.exe", "=== One\n=== two\nhost: x\n", "-k", "one")
        self.assertTrue(re.search(r"^1 passed, 0 failed$", output, re.MULTILINE), output)
