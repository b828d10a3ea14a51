"""What the tests share that start the window program without a display; the first argument is its path."""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
PATIENCE = 60  # seconds until a hanging process counts as such
FONTS = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "fonts.conf"


class RunningProgram(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.data = self.folder / "data"
        self.settings = self.data / "Application Support" / "com.fernhill.sumlet" / "preferences"
        self.started = []
        self.addCleanup(self.kill_all)

    def kill_all(self):
        for process in self.started:
            process.kill()
            process.wait()

    def environment(self, **changes):
        """That of a start, with the home in the test's folder; what is changed to None is left out."""
        (self.folder / "run").mkdir(mode=0o700, exist_ok=True)
        variables = {"HOME": self.folder, "XDG_DATA_HOME": self.data, "XDG_RUNTIME_DIR": self.folder / "run",
                     "LC_ALL": "C.UTF-8", "TZ": "UTC", "FONTCONFIG_FILE": FONTS, "QT_QPA_PLATFORM": "offscreen",
                     **changes}
        return {name: str(value) for name, value in variables.items() if value is not None}

    def start(self, *arguments, behind=(), stdin=None, cwd=None, **changes):
        process = subprocess.Popen([*behind, PROGRAM, *arguments], env=self.environment(**changes), stdin=stdin,
                                   cwd=cwd, stderr=subprocess.DEVNULL)
        self.started.append(process)
        return process

    def survivor(self, processes):
        """The one of several starts that lives on, once it has answered the others."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end and sum(process.poll() is None for process in processes) > 1:
            time.sleep(0.01)
        self.assertEqual(sorted(str(process.poll()) for process in processes), ["0"] * (len(processes) - 1) + ["None"])
        return next(process for process in processes if process.poll() is None)

    def start_running(self, **changes):
        return self.survivor([self.start(**changes), self.start(**changes)])

    def quit(self, process, by=signal.SIGTERM):
        """A session that ends may send several signals at once."""
        end = time.monotonic() + PATIENCE
        while process.poll() is None and time.monotonic() < end:
            process.send_signal(by)
        self.assertEqual(process.wait(PATIENCE), 0)
