"""Takes from the running window program the session bus, the window manager and the display."""

import os
import pathlib
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
        self.open(behind=["bash", "-c", 'exec "$0" > >(:) 2>&1'], DBUS_SESSION_BUS_ADDRESS="unix:path=/none")
        kill("VIRTUAL_WINDOW_MANAGER")
        self.run_beside(["openbox", "--sm-disable"])
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

    def expect_no_display(self, *command, advice="", **changes):
        run = subprocess.run(command, env=self.environment(**changes), capture_output=True, text=True, check=False)
        message = "sumlet: there is no display to show a window on\n" + advice
        self.assertEqual((run.returncode, run.stderr), (1, message))

    def test_a_start_without_a_display_says_so(self):
        self.expect_no_display(PROGRAM, DISPLAY=":65000")

    def test_a_start_names_the_missing_plug_in(self):
        alone = ["unshare", "--mount", "--map-root-user"]
        plugins = next(pathlib.Path("/usr/lib").glob("*/qt6/plugins/platforms"), None)
        if plugins is None or subprocess.run([*alone, "true"], check=False).returncode != 0:
            self.skipTest("the plug-ins cannot be hidden here")
        hide = f'mount -t tmpfs tmpfs {plugins} && exec "$0"'
        advice = "sumlet: Qt's plug-in for Wayland is not installed; on Debian it is in the package qt6-wayland\n"
        self.expect_no_display(*alone, "sh", "-c", hide, PROGRAM, advice=advice, DISPLAY=None, WAYLAND_DISPLAY="wayland-1")


if __name__ == "__main__":
    unittest.main()
