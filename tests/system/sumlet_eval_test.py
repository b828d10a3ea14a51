"""Runs the command-line program, also on the examples of the documents: sumlet_eval_test.py PROGRAM.

A fenced block marked "sumlet" in a document contains examples: each is an equation, a
"→", and the result on the same line. An equation in examples/ states its result in a comment, "# Result: ...".
"""

import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = tempfile.TemporaryDirectory()

FILES = {
    "value.txt": b"\xef\xbb\xbfx=2\r\nx*21\r\n",
    "error.txt": b"1\nfoo\n3",
    "empty.txt": b"",
    "-dash.txt": b"7",
    "latin.txt": b"gr\xf6\xdfe=3\ngr\xc3\xb6\xdfe*2",
    "utf16.txt": "\ufeff2*π".encode("utf-16-le"),
    "\x1b[2J": b"\x1b[31m",
}
for name, content in FILES.items():
    (pathlib.Path(FOLDER.name) / name).write_bytes(content)


def evaluate(*arguments, stdin=b"", stdout=subprocess.PIPE):
    run = subprocess.run([PROGRAM, *arguments], input=stdin, stdout=stdout, stderr=subprocess.PIPE, cwd=FOLDER.name,
                         timeout=120, check=False)
    return run.returncode, run.stdout, run.stderr.decode()


def on_terminal(*command, keys=""):
    run = subprocess.run(["script", "-qec", shlex.join(command), "/dev/null"], input=keys.encode(), stdout=subprocess.PIPE,
                         cwd=FOLDER.name, env=os.environ | {"SHELL": "/bin/sh"}, timeout=60, check=False)
    return run.stdout.decode().replace("\r\n", "\n")


class CommandLine(unittest.TestCase):
    def test_results_and_headings(self):
        for arguments, stdin, status, output in [
            # Several files are headed by their names. One error results in status 1.
            (["value.txt"], b"", 0, b"42\n"),
            (["value.txt", "empty.txt"], b"", 0, b"value.txt: 42\nempty.txt: \n"),
            (["error.txt", "value.txt"], b"", 1, b'error.txt: "foo" Error: Variable Unknown\nvalue.txt: 42\n'),
            # Standard input, alone and among files. It is empty when it is read again.
            ([], b"(1", 1, b"Error: Unmatched Parenthesis\n"),
            (["value.txt", "-", "-"], b"1+1\n", 0, b"value.txt: 42\n-: 2\n-: \n"),
            (["--", "-dash.txt"], b"", 0, b"7\n"),
            # Each -e is one line, even if its text looks like an option.
            (["-e", "x=-2", "-ex^2", "-e", "-2+x"], b"9", 0, b"-4\n"),
            # UTF-16, and a mixture of UTF-8 and Windows-1252.
            (["latin.txt", "utf16.txt"], b"", 0, b"latin.txt: 6\nutf16.txt: 6.2831853072\n"),
            (["--lines", "value.txt", "empty.txt"], b"", 0, b"value.txt:\n1  x=2   2\n2  x*21  42\nempty.txt:\n"),
        ]:
            with self.subTest(arguments=arguments):
                self.assertEqual(evaluate(*arguments, stdin=stdin), (status, output, ""))

    def test_table_of_lines(self):
        # Wide letters take two columns, combining marks none. A long line does not move the values of the others.
        text = f"# 昼食\n合計 = 1.5\r\n\te\u0301=合計/3 \n\n{'1+' * 30}1\n1,000\r\x7f\n" + "foo\n" * 3
        self.assertEqual(evaluate("--lines", stdin=text.encode())[1].decode().splitlines(), [
            " 1  # 昼食",
            " 2  合計 = 1.5    1.5",
            " 3      e\u0301=合計/3  0.5",
            " 4",
            " 5  " + "1+" * 30 + "1",
            "                  31",
            " 6  1,000         1,000",
            ' 7! \\x7F          "\\x7F" Error: Variable Unknown',
            *(f"{number}  foo" for number in (" 8", " 9", "10"))])

    def test_unreadable_files_are_named_and_the_others_evaluated(self):
        for arguments, problems in [
            (["missing.txt", ".", "value.txt"], ["missing.txt: No such file", ".: Is a directory"]),
            (["error.txt", "", "value.txt"], [": No such file or directory"]),
            (["/dev/zero", "value.txt"], ["/dev/zero: The text is longer"]),
        ]:
            with self.subTest(arguments=arguments):
                status, output, messages = evaluate(*arguments)
                self.assertEqual((status, output.splitlines()[-1]), (2, b"value.txt: 42"))
                for problem, message in zip(problems, messages.splitlines(), strict=True):
                    self.assertIn("sumlet-eval: " + problem, message)
        with open("/dev/full", "wb") as full:
            status, _, messages = evaluate("value.txt", "missing.txt", "value.txt", stdout=full)
        self.assertEqual((status, messages), (2, "sumlet-eval: standard output: No space left on device\n"))

    @unittest.skipIf(b"__asan_init" in pathlib.Path(PROGRAM).read_bytes(), "the sanitizers need address space")
    def test_too_little_memory_is_reported(self):
        limited = subprocess.run(["sh", "-c", 'ulimit -v 40000; head -c 30000000 /dev/zero | "$0" - value.txt', PROGRAM],
                                 capture_output=True, cwd=FOLDER.name, timeout=120, check=False)
        self.assertEqual((limited.returncode, limited.stdout), (2, b"value.txt: 42\n"))
        self.assertIn(b"-: Cannot allocate memory", limited.stderr)

    def test_terminal(self):
        shown = on_terminal(PROGRAM, keys="x=2\nx*21\n\x04")
        self.assertRegex(shown, r"(?sm)^Type an equation, then Ctrl\+D on an empty line\.$.*^42\n\Z")
        # Names and errors cannot send commands to the terminal.
        shown = on_terminal(PROGRAM, "\x1b[2J", "\x1b[H")
        self.assertEqual(shown, '\\x1B[2J: "\\x1B[" Error: Variable Unknown\nsumlet-eval: \\x1B[H: No such file or directory\n')

    def test_options(self):
        self.assertTrue(evaluate("value.txt", "--help")[1].startswith(b"Usage: sumlet-eval [--lines] [FILE...]\n"))
        self.assertEqual(evaluate("value.txt", "-h"), evaluate("--help"))
        self.assertRegex(evaluate("--version")[1], rb"^sumlet-eval \d+\.\d+\.\d+\n\Z")
        for *wrong, reason in [("-x", "unknown option -x"), ("--helpx", "unknown option --helpx"),
                               ("-e", "option -e requires a value"),
                               ("-e", "1", "value.txt", "-e and files exclude each other")]:
            self.assertEqual(evaluate(*wrong), (2, b"", f"sumlet-eval: {reason}\nTry sumlet-eval --help.\n"))

    def test_examples_of_the_documents(self):
        examples = []
        for path in [ROOT / "README.md", ROOT / "docs" / "language.md"]:
            for block in re.findall(r"^```sumlet\n(.*?)^```$", path.read_text(encoding="utf-8"), re.DOTALL | re.MULTILINE):
                self.assertRegex(block, r"→.*\n\Z", "each equation has a result")
                examples += re.findall(r"([^→]*)→(.*)\n", block)
        for path in (ROOT / "examples").glob("*.txt"):
            text = path.read_text(encoding="utf-8")
            examples += [(text, result) for result in re.findall(r"^# Result: (.*)$", text, re.MULTILINE)]
        self.assertGreaterEqual(len(examples), 106)
        for equation, result in examples:
            with self.subTest(equation=equation):
                self.assertEqual(evaluate(stdin=equation.encode())[1].decode().strip(), result.strip())


if __name__ == "__main__":
    unittest.main()
