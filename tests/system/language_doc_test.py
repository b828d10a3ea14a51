"""Evaluates what the documents promise: language_doc_test.py PROGRAM.

A fenced block marked "sumlet" in a document holds examples. The lines in front of a "→", and what stands before it on
the same line, are the equation; what stands behind it is the result. An equation in examples/ tells its result in a
comment, "# Result: ...".
"""

import os
import pathlib
import re
import subprocess
import sys
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
ROOT = pathlib.Path(__file__).resolve().parents[2]


def document_examples(text):
    """Yields (line number, equation, result) for each example of a document."""
    inside, equation = False, []
    for number, line in enumerate(text.splitlines(), 1):
        if line.startswith("```"):
            assert not equation, f"line {number}: an equation without a result"
            inside = line == "```sumlet"
        elif inside:
            before, arrow, result = line.partition("→")
            if before.strip():
                equation.append(before)
            if arrow:
                yield number, "\n".join(equation), result.strip()
                equation = []
    assert not inside, "a block that does not end"


class Documents(unittest.TestCase):
    def test_examples(self):
        examples = []
        for name, least in [("README.md", 2), ("docs/language.md", 100)]:
            found = list(document_examples((ROOT / name).read_text(encoding="utf-8")))
            self.assertGreaterEqual(len(found), least, name)
            examples += [(f"{name}:{number}", equation, result) for number, equation, result in found]
        paths = sorted((ROOT / "examples").glob("*.txt"))
        self.assertGreaterEqual(len(paths), 4)
        for path in paths:
            text = path.read_text(encoding="utf-8")
            (result,) = re.findall(r"^# Result: (.*)$", text, re.MULTILINE)
            examples.append((path.name, text, result))
        for place, equation, result in examples:
            run = subprocess.run([PROGRAM], input=equation.encode(), stdout=subprocess.PIPE, timeout=60, check=False)
            with self.subTest(place=place, equation=equation):
                self.assertEqual(run.stdout.decode().strip(), result)


if __name__ == "__main__":
    unittest.main()
