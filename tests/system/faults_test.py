"""Takes from the running window program the places where it saves.

Each time it continues to run, answers a second start, and ends with status 0 on a signal.
"""

import os
import shutil
import subprocess
import unittest

import settings_file
from running_program import TIMEOUT, RunningProgram, enter_namespaces


class Faults(RunningProgram):
    def write_settings(self):
        """Fills one block of the disk with a window, so that the program needs a second one to save."""
        settings_file.write(self.settings, "20 20 300 200 #" + "x" * 3994)
        self.assertEqual(self.settings.stat().st_size, 4096)

    def run_through(self, strike=lambda: None, **changes):
        process = self.start_running(**changes)
        strike()
        self.assertEqual(self.start(**changes).wait(TIMEOUT), 0)
        self.quit(process)

    def runs(self):
        """The number of runs that have saved."""
        return int(dict(settings_file.items(self.settings.read_bytes()))["RunCount"])

    def fill_disk(self):
        subprocess.run(["dd", "if=/dev/zero", f"of={self.data}/ballast"], stderr=subprocess.DEVNULL, check=False)

    def remount(self, how):
        subprocess.run(["mount", "-o", f"remount,bind,{how}", self.data], check=True)

    def test_a_full_or_read_only_disk_keeps_the_old_content(self):
        self.data.mkdir()
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", self.data], check=False).returncode != 0:
            self.skipTest("a disk of its own cannot be mounted here")
        self.addCleanup(subprocess.run, ["umount", "--lazy", self.data], check=False)
        for strike, relent in [(self.fill_disk, (self.data / "ballast").unlink),
                               (lambda: self.remount("ro"), lambda: self.remount("rw"))]:
            self.write_settings()
            before = self.settings.read_bytes()
            self.run_through(strike)
            self.assertEqual(self.settings.read_bytes(), before)
            relent()
            self.run_through()
            self.assertEqual(self.runs(), 2, "the next run saves")

    def test_without_standard_streams_it_saves(self):
        self.run_through(wrapper=["sh", "-c", 'exec "$0" <&- >&- 2>&-'])
        self.assertEqual(self.runs(), 1)

    def test_a_home_that_vanishes_is_made_anew(self):
        self.write_settings()
        text = self.settings.read_bytes()[-3000:]
        self.run_through(lambda: shutil.rmtree(self.data))
        self.assertEqual(self.runs(), 2)
        self.assertIn(text, self.settings.read_bytes())

    def test_without_a_home_it_runs(self):
        for home in (None, "", "relative", "/proc/none"):
            with self.subTest(home=home):
                self.run_through(HOME=home, XDG_DATA_HOME=None)


if __name__ == "__main__":
    # A test can mount a disk in a namespace of its own, which removes the disk at the end whatever happens.
    enter_namespaces("--mount", *([] if os.geteuid() == 0 else ["--map-root-user"]))
    unittest.main()
