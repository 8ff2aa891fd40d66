import unittest

import tokens

PLACES = {"cwd": "C:\\t\\0001", "drive": "C:", "version": "1.2.3"}


def matches(lines, actual, is_pattern=False):
    if is_pattern:
        return tokens.expected_pattern(lines, PLACES, "\r\n").fullmatch(actual) is not None
    return tokens.expected_text(lines, PLACES, "\r\n") == actual


class Matching(unittest.TestCase):
    def test_what_matches(self):
        rows = [
            # lines, actual output, as a pattern
            ([], "", False),
            ([], "", True),
            (["a", "b"], "a\r\nb\r\n", False),
            ([""], "\r\n", False),
            (["a{{noend}}"], "a", False),
            (["a", "b{{noend}}"], "a\r\nb", True),
            (["{{cwd}}>{{drive}}{{version}}"], "C:\\t\\0001>C:1.2.3\r\n", False),
            (["{{cwd}}\\{{[a-z]+}}"], "C:\\t\\0001\\abc\r\n", True),
            (["a.b{{.*}}"], "a.b and more\r\n", True),
            (["{{(?s:.*)}}end"], "one\r\ntwo\r\nend\r\n", True),
            (["{{bs}}{{tab}}{{cr}}{{lf}}{{esc}}{{u+00E9}}"], "\b\t\r\n\x1b\xe9\r\n", False),
            (["{{x+FF}}{{open}}x}}"], "\udcff{{x}}\r\n", False),
        ]
        for lines, actual, is_pattern in rows:
            with self.subTest(lines=lines):
                self.assertTrue(matches(lines, actual, is_pattern))

    def test_what_does_not_match(self):
        rows = [
            ([], "\r\n", False),
            (["a"], "a", False),
            (["a"], "a\n", False),
            (["a"], "a\r\n\r\n", False),
            (["a"], "A\r\n", False),
            (["a{{.}}"], "ab c\r\n", True),
            (["a.b{{.*}}"], "axb\r\n", True),
            (["{{.*}}"], "one\r\ntwo\r\n", True),
            (["a{{noend}}"], "a\r\n", True),
        ]
        for lines, actual, is_pattern in rows:
            with self.subTest(lines=lines, actual=actual):
                self.assertFalse(matches(lines, actual, is_pattern))

    def test_a_misspelt_token_is_an_error(self):
        with self.assertRaises(tokens.TokenError):
            tokens.expected_text(["{{cdw}}"], PLACES, "\r\n")
        with self.assertRaises(tokens.TokenError):
            tokens.expected_pattern(["{{(}}"], PLACES, "\r\n")

    def test_scripts_keep_braces_that_are_no_token(self):
        self.assertEqual(tokens.fill_in("echo {{cwd}} {{x}} {{bs}}", PLACES), "echo C:\\t\\0001 {{x}} \b")


class Showing(unittest.TestCase):
    def test_shown_output_expects_itself(self):
        outputs = [
            "",
            "\r\n",
            "plain\r\n",
            "no end",
            "a\r\n\r\n",
            "trailing \r\n",
            "\b\t\x00\x01\x1b[0m\x7f\r\n",
            "lone\nfeed and\rreturn\r\r\n",
            "{{cwd}} C:\\T\\0001\\x\r\n",
            "\udcff\ud800\ufeff\xa0\xe9\r\n",
        ]
        for output in outputs:
            with self.subTest(output=output):
                lines = tokens.visible_lines(output, "\r\n", {})
                self.assertTrue(all(line.isprintable() for line in lines), lines)
                self.assertTrue(matches(lines, output))

    def test_places_become_tokens(self):
        self.assertEqual(tokens.visible_lines("c:\\t\\0001\\a\r\n", "\r\n", PLACES), ["{{cwd}}\\a"])
