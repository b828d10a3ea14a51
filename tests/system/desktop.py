"""Works the window program by keyboard and pointer, on a display that scripts/virtual_display.sh has started."""

import os
import subprocess

import settings_file
from running_program import RunningProgram


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, check=False).stdout.strip()


class Desktop(RunningProgram):
    variables = {**RunningProgram.variables, "QT_QPA_PLATFORM": "xcb", "DISPLAY": os.environ.get("DISPLAY"),
                 "LSAN_OPTIONS": os.environ.get("LSAN_OPTIONS")}

    def open(self, *arguments, title="Sumlet", **changes):
        """Starts the program and waits until a window with this title has the keyboard."""
        self.program = self.start(*arguments, **changes)
        self.expect_title(title)
        self.window = xdotool("getactivewindow")

    def open_windows(self, *windows):
        """Starts the program with these windows, each "left top width height text", the front one first. Waits until the
        front one takes keys, because a busy program drops those that arrive before its text has the focus."""
        settings_file.write(self.settings, *windows)
        self.open()
        self.expect_text(windows[0].split(" ", 4)[4])

    def press(self, *keys):
        xdotool("key", "--delay", "20", *keys)

    def type(self, text):
        for number, line in enumerate(text.split("\n")):
            if number > 0:
                self.press("Return")
            xdotool("type", "--delay", "20", "--", line)

    def point(self, x, y, *action):
        """Moves the pointer to this place in the window, in pixels, and goes on with an action of xdotool."""
        xdotool("mousemove", "--window", self.window, x, y, *action)

    def set_clipboard(self, text):
        """Returns once a process that stays in the background owns the clipboard."""
        subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=True)

    def clipboard(self):
        command = ["timeout", "5", "xclip", "-selection", "clipboard", "-o"]
        return subprocess.run(command, capture_output=True, check=False).stdout.decode(errors="replace")

    def title(self):
        return xdotool("getactivewindow", "getwindowname")

    def expect_title(self, title):
        self.expect(title, self.title)

    def text(self):
        """Selects and copies the text of the area with the focus. An empty area leaves the clipboard unchanged."""
        self.press("ctrl+a", "ctrl+c")
        return self.clipboard()

    def expect_text(self, text):
        self.expect(text, self.text)

    def calculate(self, text, result):
        """Replaces the equation, waits for the result, and returns to the equation."""
        self.press("ctrl+a")
        self.type(text)
        self.expect_result(result)

    def expect_result(self, result):
        self.press("Tab")
        self.expect_text(result)
        self.press("shift+Tab")

    def paste(self, text, result):
        """Replaces the equation by pasting. Repeats it, because the toolkit drops a paste when the owner of the
        clipboard needs more than a second to answer, as on a busy machine."""
        def shown_result():
            self.set_clipboard(text)
            self.press("ctrl+a", "ctrl+v", "Tab")
            shown = self.eventually(result, self.text, timeout=5)
            self.press("shift+Tab")
            return shown

        self.expect(result, shown_result)
        self.expect_text(text)

    def quit_program(self, *by):
        self.quit(self.program, *by)

    def expect_stored(self, *lines):
        """Checks the templates and windows of the settings file, written as settings_file.stored returns them."""
        self.assertEqual(settings_file.stored(self.settings), list(lines))
