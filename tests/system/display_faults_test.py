"""Takes from the running window program the session bus, the window manager and the display."""

import os
import signal
import subprocess
import unittest

import settings_file
from desktop import Desktop, xdotool
from running_program import PROGRAM


def kill(process):
    os.kill(int(os.environ[process]), signal.SIGKILL)


class DisplayFaults(Desktop):
    def test_works_without_them_and_saves_at_last(self):
        settings_file.write(self.settings, "100 80 365 234 6*7")
        # The process that should read the program's output ends at once.
        self.open(wrapper=["bash", "-c", 'exec "$0" > >(:) 2>&1'], DBUS_SESSION_BUS_ADDRESS="unix:path=/none")
        kill("VIRTUAL_WINDOW_MANAGER")
        self.start_helper(["openbox", "--sm-disable"])
        self.expect(True, lambda: xdotool("windowactivate", self.window) or xdotool("getactivewindow") == self.window)
        self.expect_text("6*7")
        self.calculate("5*6", "30")
        self.press("ctrl+n")
        self.expect(False, lambda: xdotool("getactivewindow") in ("", self.window))
        self.calculate("5*7", "35")

        kill("VIRTUAL_DISPLAY")
        self.assertEqual(self.program.wait(), 1)
        stored = settings_file.stored(self.settings)
        self.assertEqual([line.split()[-1] for line in stored], ["5*7", "5*6"])

    def test_a_start_without_a_display_says_so(self):
        run = subprocess.run([PROGRAM], env=self.environment(DISPLAY=":65000"), capture_output=True, text=True, check=False)
        self.assertEqual((run.returncode, run.stderr), (1, "sumlet: there is no display to show a window on\n"))


if __name__ == "__main__":
    unittest.main()
