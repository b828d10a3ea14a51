"""Starts the window program several times: second_start_test.py PROGRAM."""

import contextlib
import hashlib
import os
import pathlib
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
PATIENCE = 60  # seconds until a hanging process counts as such
QUIT_SIGNALS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)


class SecondStart(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.started = []
        self.addCleanup(self.kill_all)

    def kill_all(self):
        for process in self.started:
            process.kill()
            process.wait()

    def start(self, data="data", behind=(), stdin=None):
        (self.folder / "run").mkdir(mode=0o700, exist_ok=True)
        environment = {"HOME": str(self.folder), "XDG_DATA_HOME": str(self.folder / data), "LC_ALL": "C.UTF-8",
                       "XDG_RUNTIME_DIR": str(self.folder / "run"), "QT_QPA_PLATFORM": "offscreen"}
        process = subprocess.Popen([*behind, PROGRAM], env=environment, stdin=stdin, stderr=subprocess.DEVNULL)
        self.started.append(process)
        return process

    def start_at_once(self, count):
        """Starts that have come up to the program itself and go on at the same instant."""
        waiting, gate = os.pipe()
        processes = [self.start(behind=["sh", "-c", 'read gate; exec "$0"'], stdin=waiting) for _ in range(count)]
        os.close(waiting)
        os.close(gate)
        return processes

    def survivor(self, processes):
        """The one of several starts that lives on, once it has answered the others."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end and sum(process.poll() is None for process in processes) > 1:
            time.sleep(0.01)
        self.assertEqual(sorted(str(process.poll()) for process in processes), ["0"] * (len(processes) - 1) + ["None"])
        return next(process for process in processes if process.poll() is None)

    def start_running(self, data="data"):
        return self.survivor([self.start(data), self.start(data)])

    def quit(self, process, by=signal.SIGTERM):
        process.send_signal(by)
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_hands_over_and_ends(self):
        for quit_signal in QUIT_SIGNALS:
            first = self.start_running(f"data {quit_signal}")
            for _ in range(3):
                self.assertEqual(self.start(f"data {quit_signal}").wait(PATIENCE), 0)
            self.quit(first, quit_signal)
            self.assertTrue((self.folder / f"data {quit_signal}" / "Application Support").exists(), "it has saved")
            # What has quit, or was killed, does not stand in the way.
            self.start_running(f"data {quit_signal}").kill()
            self.quit(self.start_running(f"data {quit_signal}"))

    def test_of_starts_at_the_same_instant_one_lives_on(self):
        for number in range(200):
            self.quit(self.survivor(self.start_at_once(2 + number % 3)))

    def test_two_data_folders_are_two_programs(self):
        first, second = self.start_running("data"), self.start_running("data2")
        os.symlink(self.folder / "data", self.folder / "link")
        (self.folder / "data").mkdir(exist_ok=True)
        self.assertEqual(self.start("link").wait(PATIENCE), 0, "another way to the first folder")
        self.quit(first)
        self.quit(second)

    @unittest.skipUnless(os.geteuid() == 0, "only root can play another user")
    def test_another_user_does_not_stand_in_the_way(self):
        for addresses, listens in [(1, True), (1, False), (3, True), (3, False)]:
            data = f"data {addresses} {listens}"
            folder = hashlib.sha256(str((self.folder / data).resolve()).encode()).hexdigest()[:32]
            with self.subTest(data), contextlib.ExitStack() as squatters:
                for number in range(addresses):
                    squatter = squatters.enter_context(socket.socket(socket.AF_UNIX))
                    squatter.bind(f"\0sumlet-0-{folder}-{number}")
                    os.seteuid(65534)  # whose socket it is shows when it begins to listen
                    if listens:
                        squatter.listen()
                    os.seteuid(0)
                self.quit(self.start_running(data))


if __name__ == "__main__":
    for number in QUIT_SIGNALS:
        signal.signal(number, signal.SIG_DFL)  # a start by nohup or from a script may have them ignored
    unittest.main()
