"""Starts the window program several times."""

import os
import signal
import socket
import subprocess
import time
import unittest

import settings_file
from running_program import TIMEOUT, PROGRAM, QUIT_SIGNALS, RunningProgram


class SecondStart(RunningProgram):
    def start_at_once(self, count):
        """Starts processes that wait for each other and then run the program at the same instant."""
        waiting, gate = os.pipe()
        processes = [self.start(wrapper=["sh", "-c", 'read gate; exec "$0"'], stdin=waiting) for _ in range(count)]
        os.close(waiting)
        os.close(gate)
        return processes

    def test_hands_over_and_ends(self):
        for quit_signal in QUIT_SIGNALS:
            first = self.start_running()
            self.assertEqual(self.start().wait(TIMEOUT), 0)
            self.quit(first, quit_signal)
            self.settings.unlink()  # the program has saved
            self.start_running().kill()  # leaves its socket and its lock file to the next start

    def test_opens_the_files_of_every_start(self):
        folder = self.folder / "documents"
        folder.mkdir()
        names = [os.fsdecode(b"caf\xe9 %d.txt" % number) for number in range(3)]
        for number, name in enumerate(names):
            (folder / name).write_text(f"{number}+1\n")
        running = self.last_running([self.start("--", f"documents/{names[0]}", cwd=self.folder) for _ in range(2)])
        missing = [f"{number:0200}" for number in range(2000)]  # more bytes than a socket's buffer holds
        self.assertEqual(self.start(f"../documents/{names[1]}", names[2], *missing, cwd=folder).wait(TIMEOUT), 0)
        self.quit(running)
        windows = settings_file.items(dict(settings_file.items(self.settings.read_bytes()))["WindowList"])
        equations = [dict(settings_file.items(record))["equation"] for _, record in windows]
        self.assertEqual(equations, [b"2%2B1", b"1%2B1", b"0%2B1", b"0%2B1"])

    def test_of_starts_at_the_same_instant_one_lives_on(self):
        for count in [2, 3, 4] * 30 + [100]:
            self.quit(self.last_running(self.start_at_once(count)))

    def test_a_program_that_hangs_refuses_starts_until_it_ends(self):
        hanging = self.start_running()
        hanging.send_signal(signal.SIGSTOP)
        refused = subprocess.run([PROGRAM], env=self.environment(QT_QPA_PLATFORM="none"), text=True, capture_output=True,
                                 timeout=20, check=False)
        self.assertEqual(refused.returncode, 1)
        self.assertIn("Sumlet is already running, but it does not answer.", refused.stderr)
        waiting = self.start()
        time.sleep(1)  # so that it has sent its request; correct without
        hanging.kill()
        self.quit(self.last_running([waiting, self.start()]))

    def test_starts_find_each_other_whatever_the_runtime_folder(self):
        for name in ("unsafe", "a-long-name-" * 20):
            (self.folder / name).mkdir()
        (self.folder / "unsafe").chmod(0o777)
        alone = ["unshare", "--net"] if os.geteuid() == 0 else ["unshare", "--net", "--map-root-user"]
        can_be_alone = subprocess.run([*alone, "true"], stderr=subprocess.DEVNULL, check=False).returncode == 0
        folders = [self.folder / "run", None, "/none", "/proc", self.folder / "unsafe",
                   self.folder / ("a-long-name-" * 20)]
        for first, second in [*zip(folders, folders), (folders[0], folders[1]), (folders[5], folders[0])]:
            with self.subTest(first=first, second=second):
                running = self.start_running(XDG_RUNTIME_DIR=first)
                self.assertEqual(self.start(XDG_RUNTIME_DIR=second).wait(TIMEOUT), 0)
                if first == second and can_be_alone:
                    self.assertEqual(self.start(wrapper=alone, XDG_RUNTIME_DIR=second).wait(TIMEOUT), 0)
                self.quit(running)

    def test_ignores_garbage_and_silent_peers(self):
        process = self.start_running()
        address = str(next(path for path in (self.folder / "run").iterdir() if path.is_socket()))
        with socket.socket(socket.AF_UNIX) as silent:
            silent.connect(address)
            for message in (b"\n", b"start \n", b"start 0 a b\n", bytes(300), b"start 9999999\n"):
                with socket.socket(socket.AF_UNIX) as peer:
                    peer.connect(address)
                    peer.send(message)
            self.assertEqual(self.start().wait(TIMEOUT), 0)
        self.quit(process)

    def test_a_hangup_that_is_ignored_stays_so(self):
        process = self.start_running(wrapper=["sh", "-c", 'trap "" HUP; exec "$0"'])
        process.send_signal(signal.SIGHUP)
        self.assertEqual(self.start().wait(TIMEOUT), 0)
        self.quit(process)

    def test_two_data_folders_are_two_programs(self):
        first, second = self.start_running(), self.start_running(XDG_DATA_HOME=self.folder / "data2")
        os.symlink(self.data, self.folder / "link")
        self.data.mkdir(exist_ok=True)
        again = self.start(XDG_DATA_HOME=f"{self.folder}/./link/")
        self.assertEqual(again.wait(TIMEOUT), 0, "a link and a dot lead to the first folder, too")
        self.quit(first)
        self.quit(second)


if __name__ == "__main__":
    unittest.main()
