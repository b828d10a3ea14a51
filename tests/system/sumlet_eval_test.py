"""Runs the command-line program as a user would: sumlet_eval_test.py PROGRAM."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
FOLDER = tempfile.TemporaryDirectory()

for name, content in [
    ("value.txt", b"x=2\nx*21"),
    ("windows.txt", b"\xef\xbb\xbfx=2\r\nx*21\r\n"),
    ("error.txt", b"1\nfoo\n3"),
    ("empty.txt", b""),
    ("-dash.txt", b"7"),
    ("binary.dat", bytes(range(256)) * 16),
    ("long.txt", b"1" + b"+1" * 100_000),
]:
    (pathlib.Path(FOLDER.name) / name).write_bytes(content)


def evaluate(*arguments, stdin=b"", stdout=subprocess.PIPE):
    run = subprocess.run([PROGRAM, *arguments], input=stdin, stdout=stdout, stderr=subprocess.PIPE, cwd=FOLDER.name,
                         timeout=120, check=False)
    return run.returncode, run.stdout, run.stderr.decode()


class CommandLine(unittest.TestCase):
    def test_results_and_headings(self):
        foo = b'"foo" Error: Variable Unknown\n'
        for arguments, stdin, status, output in [
            # One text stands alone, several are headed by their names; one error is enough for status 1.
            (["windows.txt"], b"", 0, b"42\n"),
            (["long.txt"], b"", 0, b"100001\n"),
            (["error.txt"], b"", 1, foo),
            (["value.txt", "empty.txt"], b"", 0, b"value.txt: 42\nempty.txt: \n"),
            (["error.txt", "value.txt"], b"", 1, b"error.txt: " + foo + b"value.txt: 42\n"),
            # Standard input, alone and among files. What has been read once is empty the second time.
            ([], b"(1", 1, b"Error: Unmatched Parenthesis\n"),
            (["value.txt", "-", "-"], b"1+1\n", 0, b"value.txt: 42\n-: 2\n-: \n"),
            # "--" makes names of everything behind it.
            (["--", "-dash.txt"], b"", 0, b"7\n"),
            (["--", "-"], b"3", 0, b"3\n"),
            (["./-dash.txt", "--"], b"", 0, b"7\n"),
        ]:
            with self.subTest(arguments=arguments):
                self.assertEqual(evaluate(*arguments, stdin=stdin), (status, output, ""))
        status, output, messages = evaluate("binary.dat")
        self.assertEqual((status, b"Error: " in output, messages), (1, True, ""))

    def test_unreadable_files_are_named_and_the_others_evaluated(self):
        for arguments, output, problems in [
            (["missing.txt", "value.txt", "."], b"value.txt: 42\n", ["missing.txt: No such file", ".: Is a directory"]),
            (["error.txt", "", "value.txt"], b"value.txt: 42\n", [": No such file or directory"]),
            (["/dev/zero", "value.txt"], b"value.txt: 42\n", ["/dev/zero: The text is longer"]),
        ]:
            with self.subTest(arguments=arguments):
                status, actual, messages = evaluate(*arguments)
                self.assertEqual((status, actual.endswith(output), len(messages.splitlines())), (2, True, len(problems)))
                for problem in problems:
                    self.assertIn("sumlet-eval: " + problem, messages)
        with open("/dev/full", "wb") as full:
            status, _, messages = evaluate("value.txt", stdout=full)
        self.assertEqual((status, messages), (2, "sumlet-eval: standard output: No space left on device\n"))

    def test_options(self):
        for arguments, start in [(["--help"], rb"Usage: sumlet-eval \[FILE\.\.\.\]\n"),
                                 (["value.txt", "--version"], rb"sumlet-eval \d+\.\d+\.\d+\n$")]:
            status, output, _ = evaluate(*arguments)
            self.assertEqual(status, 0)
            self.assertRegex(output, b"^" + start)
        for wrong in ["-x", "--helpx", "---", "-dash.txt"]:
            status, output, messages = evaluate("value.txt", wrong)
            self.assertEqual((status, output), (2, b""))
            self.assertIn("unknown option " + wrong + "\n", messages)


if __name__ == "__main__":
    unittest.main()
