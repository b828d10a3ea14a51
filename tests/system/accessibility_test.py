"""Reads the window program as a screen reader does, over the accessibility bus."""

import os
import pathlib
import sys
import tempfile
import unittest

from desktop import Desktop
from running_program import skip_without

skip_without("dbus-run-session")
if "XDG_RUNTIME_DIR" not in os.environ:
    # The session bus starts the accessibility bus. The bindings come with the system's interpreter.
    os.environ["XDG_RUNTIME_DIR"] = tempfile.mkdtemp(dir=os.environ["HOME"])
    os.execvp("dbus-run-session", ["dbus-run-session", "--", "/usr/bin/python3", *sys.orig_argv[1:]])
try:
    import pyatspi
    from gi.repository import GLib
except ImportError:
    pyatspi = None
if pyatspi is None or not pathlib.Path("/usr/share/dbus-1/services/org.a11y.Bus.service").exists():
    print("skipped: there is no python3-pyatspi or no at-spi2-core")
    sys.exit(77)


def within(accessible):
    yield accessible
    for child in accessible:
        yield from within(child)


def controls():
    """The role and name of each control in the program's windows that takes the keyboard."""
    try:
        programs = [program for program in pyatspi.Registry.getDesktop(0) if program.name == "Sumlet"]
        parts = [part for program in programs for window in program for part in within(window)]
        return [(part.getRoleName(), part.name) for part in parts
                if part.getState().contains(pyatspi.STATE_FOCUSABLE) and part.getState().contains(pyatspi.STATE_SHOWING)]
    except (GLib.Error, TypeError):
        return []  # a part of a window that is just closing does not answer


class Accessibility(Desktop):
    variables = {**Desktop.variables, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": 1,
                 "XDG_RUNTIME_DIR": os.environ["XDG_RUNTIME_DIR"],
                 "DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"]}

    def test_reads_the_areas_and_hears_the_result(self):
        self.open_windows("100 80 365 234 1+1")
        self.expect([("text", "Equation"), ("text", "Result")], controls)
        heard = []
        pyatspi.Registry.registerEventListener(lambda event: heard.append(event.source.description),
                                               "object:property-change:accessible-description")

        def last_heard():
            while GLib.MainContext.default().iteration(False):
                pass
            return heard[-1:]

        for equation, result in [("6*7", "42"), ("6*foo", '"*" Error: Operator Requires Two Arguments')]:
            self.press("ctrl+a")
            self.type(equation)
            self.expect([result], last_heard)


if __name__ == "__main__":
    unittest.main()
