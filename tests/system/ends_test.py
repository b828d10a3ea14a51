"""Quits the window program while something else is open. The program saves the text and ends with status 0."""

import unittest

from desktop import Desktop, xdotool


class Ends(Desktop):
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
                self.expect_text("6*7")  # and selects it
                action()
                self.quit_program()
                xdotool("mouseup", 1)
                self.expect_stored("100 80 365 234 6*7")


if __name__ == "__main__":
    unittest.main()
