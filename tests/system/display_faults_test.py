"""Takes from the running window program the session bus, the right time, the window manager and the display."""

import os
import pathlib
import signal
import subprocess
import unittest

import settings_file
from desktop import Desktop, xdotool
from running_program import PROGRAM, skip_without

skip_without("faketime")


def kill(process):
    os.kill(int(os.environ[process]), signal.SIGKILL)


class DisplayFaults(Desktop):
    def set_clock(self, offset):
        """Sets what a user can set. The clock that counts from the start of the machine goes on."""
        self.clock.write_text(offset)

    def test_works_without_them_and_saves_at_last(self):
        self.clock = self.folder / "clock"
        self.set_clock("+0")
        show_library = ["faketime", "-f", "+0", "printenv", "LD_PRELOAD"]
        library = subprocess.run(show_library, capture_output=True, text=True, check=True)
        settings_file.write(self.settings, "100 80 365 234 1+1")
        # Nobody reads what the program prints.
        unheard = ["bash", "-c", 'exec "$0" > >(:) 2>&1']
        self.open(behind=unheard, LD_PRELOAD=library.stdout.strip(), ASAN_OPTIONS="verify_asan_link_order=0",
                  FAKETIME_TIMESTAMP_FILE=self.clock, FAKETIME_NO_CACHE=1, FAKETIME_DONT_FAKE_MONOTONIC=1,
                  DBUS_SESSION_BUS_ADDRESS="unix:path=/none")
        for number, offset in enumerate(["-1d", "-20y", "+20y", "+0"]):
            self.press("ctrl+a")
            self.type(f"6*{number}")
            self.set_clock(offset)  # while the calculation is due
            self.expect_result(str(6 * number))

        kill("VIRTUAL_WINDOW_MANAGER")
        self.run_beside(["openbox", "--sm-disable"])
        self.expect(True, lambda: xdotool("windowactivate", self.window) or xdotool("getactivewindow") == self.window)
        self.expect_text("6*3")
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
