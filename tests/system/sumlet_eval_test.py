"""Runs the command-line program as a user would: sumlet_eval_test.py PROGRAM."""

import os
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))

FILES = {
    "value.txt": b"x=2\nx*21",
    "windows.txt": b"\xef\xbb\xbfx=2\r\nx*21\r\n",
    "error.txt": b"1\nfoo\n3",
    "plain-error.txt": b"(1",
    "empty.txt": b"",
    "comment.txt": b"# nothing to see",
    "-dash.txt": b"7",
    "binary.dat": bytes(range(256)) * 16,
    "long.txt": b"1" + b"+1" * 100_000,
}


class CommandLine(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        for name, content in FILES.items():
            with open(os.path.join(cls.folder.name, name), "wb") as file:
                file.write(content)

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def evaluate(self, *arguments, stdin=b"", stdout=subprocess.PIPE):
        run = subprocess.run([PROGRAM, *arguments], input=stdin, stdout=stdout, stderr=subprocess.PIPE,
                             cwd=self.folder.name, timeout=120, check=False)
        return run.returncode, run.stdout, run.stderr.decode()

    def test_results_and_headings(self):
        foo = b'"foo" Error: Variable Unknown\n'
        for arguments, stdin, status, output in [
            # One text stands alone.
            (["value.txt"], b"", 0, b"42\n"),
            (["windows.txt"], b"", 0, b"42\n"),
            (["empty.txt"], b"", 0, b"\n"),
            (["comment.txt"], b"", 0, b"\n"),
            (["long.txt"], b"", 0, b"100001\n"),
            # Details stand in quotation marks ahead of the error, where there are any.
            (["error.txt"], b"", 1, foo),
            (["plain-error.txt"], b"", 1, b"Error: Unmatched Parenthesis\n"),
            # Several are headed by their names; one error is enough for status 1.
            (["value.txt", "empty.txt"], b"", 0, b"value.txt: 42\nempty.txt: \n"),
            (["error.txt", "value.txt"], b"", 1, b"error.txt: " + foo + b"value.txt: 42\n"),
            # Standard input, alone and among files. What has been read once is empty the second time.
            ([], b"6*7", 0, b"42\n"),
            (["-"], b"6*7\n", 0, b"42\n"),
            (["value.txt", "-", "-"], b"1+1", 0, b"value.txt: 42\n-: 2\n-: \n"),
            # "--" makes names of everything behind it.
            (["--", "-dash.txt"], b"", 0, b"7\n"),
            (["--", "-"], b"3", 0, b"3\n"),
            (["./-dash.txt", "--"], b"", 0, b"7\n"),
        ]:
            with self.subTest(arguments=arguments):
                self.assertEqual(self.evaluate(*arguments, stdin=stdin), (status, output, ""))

    def test_unreadable_files_are_named_and_the_others_evaluated(self):
        for arguments, status, output, problems in [
            (["missing.txt"], 2, b"", ["missing.txt: No such file or directory"]),
            (["."], 2, b"", [".: Is a directory"]),
            (["missing.txt", "value.txt", "."], 2, b"value.txt: 42\n", ["missing.txt: No such", ".: Is a dir"]),
            (["error.txt", "", "value.txt"], 2, b"value.txt: 42\n", [": No such file or directory"]),
            (["/dev/zero", "value.txt"], 2, b"value.txt: 42\n", ["/dev/zero: The text is longer"]),
        ]:
            with self.subTest(arguments=arguments):
                actual_status, actual_output, messages = self.evaluate(*arguments)
                self.assertEqual(actual_status, status)
                self.assertTrue(actual_output.endswith(output))
                self.assertEqual(len(messages.splitlines()), len(problems))
                for problem in problems:
                    self.assertIn("sumlet-eval: " + problem, messages)

    def test_binary_input_ends_in_an_error(self):
        status, output, messages = self.evaluate("binary.dat")
        self.assertEqual((status, messages), (1, ""))
        self.assertIn(b"Error: ", output)

    def test_options(self):
        status, output, _ = self.evaluate("--help")
        self.assertEqual(status, 0)
        self.assertTrue(output.startswith(b"Usage: sumlet-eval [FILE...]\n"))
        status, output, _ = self.evaluate("value.txt", "--version")
        self.assertEqual(status, 0)
        self.assertRegex(output, rb"^sumlet-eval \d+\.\d+\.\d+\n$")
        for wrong in ["-x", "--helpx", "---", "-dash.txt"]:
            status, output, messages = self.evaluate("value.txt", wrong)
            self.assertEqual((status, output), (2, b""))
            self.assertIn("unknown option " + wrong + "\n", messages)

    def test_output_that_cannot_be_written_is_told(self):
        with open("/dev/full", "wb") as full:
            status, _, messages = self.evaluate("value.txt", stdout=full)
        self.assertEqual((status, messages), (2, "sumlet-eval: standard output: No space left on device\n"))


if __name__ == "__main__":
    unittest.main()
