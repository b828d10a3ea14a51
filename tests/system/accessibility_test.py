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


def programs():
    try:
        return [program.name for program in pyatspi.Registry.getDesktop(0)]
    except (GLib.Error, AttributeError):
        return []  # a program that is just starting may not answer in time


class Accessibility(Desktop):
    variables = {**Desktop.variables, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": 1,
                 "XDG_RUNTIME_DIR": os.environ["XDG_RUNTIME_DIR"],
                 "DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"]}

    def test_announces_the_result(self):
        self.open_windows("100 80 365 234 1+1")
        self.expect(["Sumlet"], programs)
        heard = []
        pyatspi.Registry.registerEventListener(lambda event: heard.append((event.source.name, event.source.description)),
                                               "object:property-change:accessible-description")

        def last_heard():
            while GLib.MainContext.default().iteration(False):
                pass
            return heard[-1:]

        for equation, result in [("6*7", "42"), ("6*foo", '"*" Error: Operator Requires Two Arguments')]:
            self.press("ctrl+a")
            self.type(equation)
            self.expect([("Equation", result)], last_heard)


if __name__ == "__main__":
    unittest.main()
