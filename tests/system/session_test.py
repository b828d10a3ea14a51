"""Works the window program as a user does, quits it, and checks that the next start shows everything as it was."""

import signal
import subprocess
import unittest

import settings_file
from desktop import Desktop, xdotool


class Commands(Desktop):
    def setUp(self):
        super().setUp()
        self.open_windows("100 80 365 234 1+1")

    def test_dragging_the_result_into_the_equation_inserts_it_once(self):
        def drag():
            self.calculate("x=2\nx*21", "42")
            self.press("Tab", "ctrl+a")
            self.point(15, 236, "mousedown", 1)
            for y in (220, 190, 160, 120):
                self.point(15, y, "sleep", 0.05)
            xdotool("mouseup", 1)
            self.type("+7")  # the equation takes what is typed while the result has the focus
            return self.eventually("x=2\nx*2142+7", self.text, timeout=5)

        self.expect("x=2\nx*2142+7", drag)
        self.point(15, 242, "click", 1)
        self.type("8")
        self.expect_text("x=2\nx*2142+78")

    def test_a_text_survives_paste_export_and_import(self):
        text = "// 1\u00A0000 € 𝜋 😀\n\n6*7\n"
        self.paste(text, "42")
        exported, other = self.folder / "exported.txt", self.folder / "other.txt"
        self.press("ctrl+shift+s")
        self.expect(True, lambda: self.title() in ("Save As", "Save File"))
        self.press("ctrl+a")
        self.type(str(exported))
        self.press("Return")
        self.expect(text.encode(), lambda: exported.exists() and exported.read_bytes())
        other.write_text("2+2\n")
        self.expect_title("Sumlet")
        self.press("ctrl+o")
        self.expect_title("Select Text (.txt) files to import as equations.")
        self.type(f'"{exported}" "{other}"')
        self.press("Return")
        self.expect_text("2+2")


class Quitting(Desktop):
    """Quits while a menu, a dialog, a drag or the like is open. The program saves the text and ends with status 0."""

    def shown(self):
        return xdotool("search", "--onlyvisible", "--pid", self.program.pid, "--class", ".").split()

    def expect_popup(self, open_popup):
        before = len(self.shown())
        open_popup()
        self.expect(True, lambda: len(self.shown()) > before)

    def expect_window(self, title, *keys):
        self.press(*keys)
        self.expect_title(title)

    def open_file_dialog(self):
        self.expect_window("Select Text (.txt) files to import as equations.", "ctrl+o")

    def open_alert(self):
        self.open_file_dialog()
        (self.folder / "empty.txt").touch()
        self.type(str(self.folder / "empty.txt"))
        self.expect_window("Sumlet", "Return")

    def open_list(self):
        self.expect_window("Preferences", "ctrl+comma")
        self.expect_popup(lambda: self.press("Tab", "space"))

    def begin_drag(self):
        self.point(20, 45, "mousedown", 1, "mousemove_relative", 5, 0, "sleep", 0.2, "mousemove_relative", 40, 40)

    def test_saves_whatever_is_open(self):
        for name, action in [
            ("menu", lambda: self.expect_popup(lambda: self.press("alt+e"))),
            ("context menu", lambda: self.expect_popup(lambda: self.point(60, 60, "click", 3))),
            ("sheet", lambda: self.expect_window("Untitled", "alt+f", "Down", "Down", "Return")),
            ("file dialog", self.open_file_dialog),
            ("list", self.open_list),
            ("alert", self.open_alert),
            ("drag", self.begin_drag),
            ("full screen", lambda: self.press("F11")),
        ]:
            with self.subTest(name):
                self.open_windows("100 80 365 234 1+1")
                self.press("ctrl+a")
                self.type("6*7")
                self.expect_text("6*7")  # selects the text, for the drag
                action()
                self.quit_program()
                xdotool("mouseup", 1)
                self.expect_stored("100 80 365 234 6*7")


class Session(Desktop):
    def windows(self):
        return xdotool("search", "--onlyvisible", "--pid", self.program.pid, "--class", "^Sumlet$").split()

    def expect_windows(self, count):
        self.expect(count, lambda: len(self.windows()))

    def start_again(self):
        """Starts the program a second time and waits until it has ended the desktop's start-up notification. It does so
        by a message of the type _NET_STARTUP_INFO_BEGIN."""
        log = self.folder / "messages"
        with log.open("w") as output:
            self.start_helper(["xev", "-root", "-event", "property"], stdout=output)
        # Sets a property until the log shows it, so that the message is not missed.
        set_property = ["xprop", "-root", "-format", "seen", "8s", "-set", "seen", "yes"]
        self.expect(True, lambda: subprocess.run(set_property, check=True) and "seen" in log.read_text())
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

    def test_keeps_running_after_the_last_window_closes(self):
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
            settings_file.write(self.settings, *windows, runs=4)  # so the review prompt is a ninth window
            self.program = self.start()
            self.expect_windows(9)
            self.quit_program()
            self.expect_stored(*windows)

    def test_does_not_overwrite_what_it_could_not_load(self):
        settings_file.write(self.settings)
        self.settings.write_bytes(b"X")
        self.open()
        self.quit_program()
        self.assertEqual(self.settings.read_bytes(), b"X")


if __name__ == "__main__":
    unittest.main()
