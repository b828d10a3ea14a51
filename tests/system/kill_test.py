"""Kills a program that saves without end, 200 times: kill_test.py SAVE-LOOP.

Each time the settings file holds what one save has written, whole.
"""

import fcntl
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time
import unittest

from settings_file import items

PROGRAM = os.path.abspath(sys.argv.pop(1))


class Killed(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def settings_after_kill(self, data, delay):
        """The section that the killed program saved, None when there is no file."""
        path = data / "Application Support" / "com.fernhill.sumlet" / "preferences"
        environment = {"HOME": str(self.folder), "XDG_DATA_HOME": str(data)}
        with subprocess.Popen([PROGRAM], env=environment, stdout=subprocess.PIPE) as process:
            process.stdout.readline()
            time.sleep(delay)
            process.kill()
        if not path.exists():
            return None
        with open(path, "rb") as file:
            fcntl.flock(file, fcntl.LOCK_SH)  # as the next start would
            content = file.read()
        return dict(items(content))["TemplateList"]

    def test_leaves_a_whole_file(self):
        instants = random.Random(3)
        sections = set()
        for number in range(200):
            # Every other time there is no file yet, and the first save is the one that is hit.
            first = number % 2 == 0
            data = self.folder / str(number) if first else self.folder
            section = self.settings_after_kill(data, instants.uniform(0, 0.004 if first else 0.03))
            if section is None:
                continue
            self.assertEqual(section, section[:1] * len(section), "one save's letters")
            self.assertIn(len(section), (3_000_000, 10, 300_000, 70_000))
            sections.add(section)
        self.assertGreater(len(sections), 3, "it was killed at work")


if __name__ == "__main__":
    unittest.main()
