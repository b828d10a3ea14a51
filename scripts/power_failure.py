"""Simulates a power failure at every instant of some saves: power_failure.py SAVE-LOOP [TRIES]. Status 77 without strace.

strace records the system calls of the saves. A power failure interrupts them after any prefix. Each page, length or name
that is not flushed by then can be missing: the test makes TRIES random choices for each prefix. The next start then has
to find the current save or the previous one, whole. A model of the disk stands for the contents: each page holds the
number of the save that wrote it.
"""

import copy
import pathlib
import random
import re
import shutil
import subprocess
import sys

TRIES = int(sys.argv.pop()) if sys.argv[-1].isdigit() else 20

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "system"))
from running_program import PROGRAM, RunningProgram, unittest

SAVES = 6
PAGE = 4096
PATTERN = re.compile(r'(\w+)\((?:\d+<(.*?)>|AT_FDCWD<.*?>, "(.*?)"|"(.*?)")(?:, "(.*?)")?(.*?)\)? *(?:<unf.*|= (-?\d+).*)$')


class Disk:
    """The content of a disk: the pages of each file as {page: save}, the lengths, and the files' numbers by name."""

    def __init__(self):
        self.pages, self.lengths, self.names = {}, {}, {}

    def apply(self, kind, key, value):
        if kind == "page":
            self.pages.setdefault(key[0], {})[key[1]] = value
        elif kind == "length":
            self.lengths[key] = value
        elif value is None:
            self.names.pop(key, None)
        else:
            self.names[key] = value

    def save_in(self, name, sizes):
        """The save that the file contains as a whole; None if the file is torn, -1 if there is no file."""
        if name not in self.names:
            return -1
        length = self.lengths.get(self.names[name], 0)
        pages = self.pages.get(self.names[name], {})
        found = {pages.get(page) for page in range(-(-length // PAGE))}
        return next((save for save in found if len(found) == 1 and sizes.get(save) == length), None)


def owner(change):
    """The number of the file whose flush writes the change to the disk; None for the folder."""
    kind, key, _ = change
    return {"page": key[0] if kind == "page" else 0, "length": key, "name": None}[kind]


class PowerFailure(RunningProgram):
    def calls(self):
        log = self.folder / "log"
        command = ["strace", "-f", "-y", "-s", "0", "-e", "signal=none", "-o", log, "-e",
                   "trace=openat,pwrite64,ftruncate,fsync,rename,unlink,write", PROGRAM]
        with subprocess.Popen(command, env=self.environment(), stdout=subprocess.PIPE) as process:
            for _ in range(SAVES + 1):
                process.stdout.readline()
            subprocess.run(["pkill", "-KILL", "-P", str(process.pid)], check=True)
        for line in log.read_text().splitlines():
            if call := PATTERN.search(line):
                name, *paths, second, rest, result = call.groups()
                yield name, next(filter(None, paths)).split("/")[-1], (second or "").split("/")[-1], rest, result

    def test_leaves_the_old_session_or_the_new_one(self):
        disk, now, pending, sizes, save, files, cases, torn = Disk(), Disk(), [], {}, -1, 0, 0, 0
        choices = random.Random(5)

        def do(*change):
            now.apply(*change)
            pending.append(change)

        for name, file, other, rest, result in self.calls():
            number = now.names.get(file)
            if name == "write":
                save += 1
            elif name == "openat" and "O_CREAT" in rest and number is None:
                do("name", file, files := files + 1)
            elif name == "openat" and "O_TRUNC" in rest:
                do("length", number, 0)
            elif name == "pwrite64":
                size = sizes[save] = int(result)
                for page in range(-(-size // PAGE)):
                    do("page", (number, page), save)
                do("length", number, max(size, now.lengths.get(number, 0)))
            elif name == "ftruncate":
                do("length", number, int(rest.strip(", ")))
            elif name == "fsync":
                for change in [change for change in pending if owner(change) == number]:
                    disk.apply(*change)
                pending = [change for change in pending if owner(change) != number]
            elif name == "rename" and result == "0":
                do("name", other, number)
                do("name", file, None)
            elif name == "unlink" and result == "0":
                do("name", file, None)
            for left in [0, 1] + [choices.random() for _ in range(TRIES)]:
                after = copy.deepcopy(disk)
                for change in pending:
                    if choices.random() < left:
                        after.apply(*change)
                recovered, stored = (after.save_in(file, sizes) for file in ("recovery", "preferences"))
                found = stored if recovered in (None, -1) else recovered
                self.assertIn(found, (save - 1, save), f"at {name} of {file} in save {save}")
                torn += stored is None
                cases += 1
        self.assertGreater(torn, 0, "the model tears files")
        print(f"{cases} power failures, {torn} with a torn settings file, 0 sessions lost")


if __name__ == "__main__":
    if shutil.which("strace") is None:
        sys.exit(77)
    unittest.main()
