"""Kills a program that saves without end, 1,000 times: kill_test.py SAVE-LOOP.

Each time the settings file holds, whole, what the last finished save has written or the one that was hit.
"""

import random
import shutil
import subprocess
import time
import unittest

from running_program import PROGRAM, RunningProgram
from settings_file import items


class Killed(RunningProgram):
    def section_after_kill(self, saves, delay):
        """What is saved once the program has been killed `delay` seconds into that save; None when there is no file."""
        with subprocess.Popen([PROGRAM], env=self.environment(), stdout=subprocess.PIPE) as process:
            for _ in range(saves + 1):
                self.assertTrue(process.stdout.readline())
            time.sleep(delay)
            process.kill()
        recovery = self.settings.with_name("recovery")
        read = recovery if recovery.exists() else self.settings  # as the next start does
        return dict(items(read.read_bytes()))["TemplateList"] if read.exists() else None

    def test_leaves_a_whole_file(self):
        instants = random.Random(3)
        hit = 0  # how often the save under way was the one that is left
        for number in range(1000):
            # Every other time there is no file yet, and the first save is the one that is hit.
            saves = 0 if number % 2 == 0 else instants.randrange(1, 6)
            section = self.section_after_kill(saves, 0.03 * instants.random() ** 2)
            if section is None:
                self.assertEqual(saves, 0, "a finished save is lost")
                continue
            self.assertEqual(section, section[:1] * len(section), "one save's letters")
            left = section[0] - ord("a")
            self.assertEqual(len(section), (3_000_000, 10, 300_000, 70_000)[left % 4])
            self.assertGreaterEqual(left, saves - 1, "a finished save is lost")
            hit += left >= saves
            shutil.rmtree(self.data)
        self.assertTrue(10 < hit < 1000, "it was killed at work")


if __name__ == "__main__":
    unittest.main()
