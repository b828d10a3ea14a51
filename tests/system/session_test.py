"""Works in several windows, and checks that the next start shows them as they were."""

import plistlib
import signal
import subprocess
import unittest

import settings_file
from desktop import Desktop, xdotool


class Session(Desktop):
    def windows(self):
        return xdotool("search", "--onlyvisible", "--pid", self.program.pid, "--class", "^Sumlet$").split()

    def expect_windows(self, count):
        self.expect(count, lambda: len(self.windows()))

    def start_again(self):
        """Starts the program a second time and waits for the message that ends the desktop's start-up notice."""
        log = self.folder / "messages"
        with log.open("w") as output:
            self.run_beside(["xev", "-root", "-event", "property"], stdout=output)
        watched = ["xprop", "-root", "-format", "seen", "8s", "-set", "seen", "yes"]
        self.expect(True, lambda: subprocess.run(watched, check=True) and "seen" in log.read_text())
        self.assertEqual(self.start(DESKTOP_STARTUP_ID="start").wait(), 0)
        self.expect(True, lambda: "STARTUP_INFO_BEGIN" in log.read_text())

    def test_windows_come_back(self):
        self.open_windows("100 80 365 234 front", "420 300 300 200 back")
        self.expect_windows(2)
        self.expect_text("front")
        front = xdotool("getactivewindow")
        back = next(window for window in self.windows() if window != front)
        self.press("ctrl+a")
        self.type("6*7")
        xdotool("windowactivate", "--sync", back)
        self.expect_text("back")
        self.press("ctrl+a")
        self.type("x=5\nx/2")
        xdotool("windowmove", "--sync", back, 500, 350)
        self.expect_text("x=5\nx/2")
        self.quit_program()
        stored = ["500 350 300 200 x=5\nx/2", "100 80 365 234 6*7"]
        self.expect_stored(*stored)

        # A start without changes leaves everything in place. A second start shows the minimized front window.
        self.open()
        self.expect_windows(2)
        self.expect_text("x=5\nx/2")
        front = xdotool("getactivewindow")
        back = next(window for window in self.windows() if window != front)
        for window in (back, front):
            xdotool("windowminimize", "--sync", window)
        self.expect_windows(0)
        self.start_again()
        self.expect_text("x=5\nx/2")
        self.quit_program(signal.SIGINT)
        self.expect_stored(*stored)

    def test_stays_without_a_window(self):
        self.open_windows("100 80 365 234 1+1")
        self.press("alt+F4")
        self.expect_windows(0)
        self.start_again()
        self.expect_title("Template Chooser")
        self.quit_program(signal.SIGHUP)
        self.expect_stored("chooser")

    def test_eight_windows_keep_their_order(self):
        windows = [f"{40 * i} {30 * i} 300 200 {i}" for i in (5, 3, 8, 1, 7, 2, 6, 4)]
        for _ in range(2):
            settings_file.write(self.settings, *windows, runs=4)  # the fifth start asks for a review, too
            self.program = self.start()
            self.expect_windows(9)
            self.quit_program()
            self.expect_stored(*windows)

    def test_takes_over_a_binary_older_file(self):
        def window(left, top, width, height, equation):
            return {"left": left, "top": top, "width": width, "height": height, "size": 13, "equation": equation}

        older = self.folder / ".config" / "com.fernhill.sumlet.plist"
        older.parent.mkdir()
        older.write_bytes(plistlib.dumps(fmt=plistlib.FMT_BINARY, value={
            "RunCount": 1, "TemplateList": {"0": {"name": "Three & a half", "equation": "price%3D19.99%0Aprice*3"}},
            "WindowList": {"0": window(100, 80, 365, 234, "6*7"), "1": window(420, 300, 300, 200, "x%3D5%0Ax%2F2")}}))
        before = older.read_bytes()
        self.open()
        self.expect_text("6*7")
        self.quit_program()
        self.expect_stored("Three &amp; a half: price=19.99\nprice*3", "100 80 365 234 6*7", "420 300 300 200 x=5\nx/2")
        self.assertEqual(older.read_bytes(), before)

    def test_does_not_overwrite_what_it_could_not_load(self):
        settings_file.write(self.settings)
        self.settings.write_bytes(b"X")
        self.open()
        self.quit_program()
        self.assertEqual(self.settings.read_bytes(), b"X")


if __name__ == "__main__":
    unittest.main()
