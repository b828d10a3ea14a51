"""Runs the window program with temporary settings. The first argument of a test is the path of the program."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
TIMEOUT = 60  # seconds
FONTS = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "fonts.conf"
QUIT_SIGNALS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)

for number in QUIT_SIGNALS:
    signal.signal(number, signal.SIG_DFL)  # a script or nohup may have ignored them for its children


def skip_without(*tools):
    for tool in tools:
        if shutil.which(tool) is None:
            print(f"skipped: there is no {tool}")
            sys.exit(77)


def enter_namespaces(*options):
    """Runs the test again under unshare. Returns True in that run, and False where unshare is not permitted."""
    if "SUMLET_NAMESPACES" in os.environ:
        return True
    if subprocess.run(["unshare", *options, "true"], stderr=subprocess.DEVNULL, check=False).returncode != 0:
        return False
    os.environ["SUMLET_NAMESPACES"] = "entered"
    os.execvp("unshare", ["unshare", *options, *sys.orig_argv])


class RunningProgram(unittest.TestCase):
    variables = {"QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": "*=false"}

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
        """The environment variables of the program. Omits a variable that is set to None."""
        (self.folder / "run").mkdir(mode=0o700, exist_ok=True)
        variables = {"HOME": self.folder, "XDG_DATA_HOME": self.data, "XDG_RUNTIME_DIR": self.folder / "run",
                     "LC_ALL": "C.UTF-8", "TZ": "UTC", "FONTCONFIG_FILE": FONTS, "PATH": os.environ["PATH"],
                     **self.variables, **changes}
        return {name: str(value) for name, value in variables.items() if value is not None}

    def start(self, *arguments, wrapper=(), stdin=None, cwd=None, **changes):
        """Starts the program, with `wrapper` as the command line that runs it."""
        command = [*wrapper, PROGRAM, *arguments]
        return self.kill_at_end(subprocess.Popen(command, env=self.environment(**changes), stdin=stdin, cwd=cwd))

    def start_helper(self, command, stdout=subprocess.DEVNULL, **changes):
        """Starts another program that the test needs, and kills it when the test ends."""
        return self.kill_at_end(subprocess.Popen(command, env=self.environment(**changes), stdout=stdout,
                                                 stderr=subprocess.DEVNULL))

    def kill_at_end(self, process):
        self.started.append(process)
        return process

    @staticmethod
    def eventually(wanted, read, timeout=TIMEOUT):
        """Calls `read` until it returns `wanted` or `timeout` seconds are over, and returns its last value."""
        end = time.monotonic() + timeout
        while (found := read()) != wanted and time.monotonic() < end:
            time.sleep(0.02)
        return found

    def expect(self, wanted, read, message=None):
        self.assertEqual(self.eventually(wanted, read), wanted, message)

    def last_running(self, processes):
        """Waits until only one of the processes runs, checks that the others ended with status 0, and returns it."""
        self.eventually(1, lambda: sum(process.poll() is None for process in processes))
        self.assertEqual(sorted(str(process.poll()) for process in processes), ["0"] * (len(processes) - 1) + ["None"])
        return next(process for process in processes if process.poll() is None)

    def start_running(self, **changes):
        """Starts the program twice and returns the one that keeps running. It handles events: it answered the other."""
        return self.last_running([self.start(**changes), self.start(**changes)])

    def quit(self, process, by=signal.SIGTERM):
        """Sends the signal until the process ends, because the end of a session may send several at once."""
        end = time.monotonic() + TIMEOUT
        while process.poll() is None and time.monotonic() < end:
            process.send_signal(by)
            time.sleep(0.001)
        self.assertEqual(process.wait(TIMEOUT), 0)
