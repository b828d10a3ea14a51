#!/usr/bin/env python3
"""Measures the start of window programs, and their cost while idle: start_up.py [OPTIONS] FOLDER

FOLDER is a build folder with sumlet, bare_qt and first_paint. Needs a display with a window manager that is not used
otherwise; scripts/bench.sh makes one. The programs take turns (A B C A B C ...), so that a busy moment of the machine
hits them all. Prints a Markdown table: the median time from the start of the process to its first painted window, in
brackets how many times as long as the bare Qt program's, the least, and the time to the last window where a program
opens several; the processor time of the start without that of the display and the window manager; resident and
proportional memory a while later; and of the idle time after that the processor time and how often a thread woke up.
Proportional memory compares only while no other program of a toolkit comes or goes.

Below the table stands what each further window of a large session takes. The windows of a session are made one after
the other, and painting begins when all are there, so the first painted window tells when the last one was made. Peers
that are not installed, or show no window here, are left out with a word.
"""

import argparse
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "system"))
import settings_file  # noqa: E402

SETTINGS = ".local/share/Application Support/com.fernhill.sumlet/preferences"
PEERS = ["speedcrunch", "galculator", "featherpad", "kcalc", "mousepad", "qalculate-gtk", "gnome-calculator"]
EQUATIONS = ["20 40 365 234 # A garden\nlength = 12.5\nwidth = 8\n2*(length+width)", "500 40 365 234 x=2\ny=x+2\ny+2",
             "20 400 365 234 max(sqrt(2), 4/3)"]
SESSION = [f"{20 + 375 * (i % 20)} {40 + 290 * (i // 20)} 365 234 # number {i}\nx={i}\nx*2+1" for i in range(200)]
SETTLED = 2  # seconds after which a start is complete
ASLEEP = 12  # seconds after which a caret stops blinking


class Program:
    """A program to measure: its command, its own home, and the number of windows that it opens at its start."""

    def __init__(self, name, command, folder, windows=1):
        self.name, self.command, self.windows = name, command, windows
        self.home = pathlib.Path(folder, name.replace(" ", "-"))
        self.settings = None
        self.times = []
        (self.home / "run").mkdir(parents=True)
        (self.home / "run").chmod(0o700)

    def environment(self):
        kept = {key: value for key, value in os.environ.items() if not key.startswith(("XDG_", "QT_"))}
        return kept | {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home / "run"), "LC_ALL": "C.UTF-8",
                       "QT_QPA_PLATFORM": "xcb", "GDK_BACKEND": "x11"}

    def store(self, equations):
        """Writes the settings as the program does; every start finds the same."""
        path = self.home / SETTINGS
        if equations:
            settings_file.write(path, *equations)
        with Run(self):
            time.sleep(SETTLED)
        self.settings = path.read_bytes()

    def restore(self):
        if self.settings is not None:
            (self.home / SETTINGS).write_bytes(self.settings)


class Run:
    """One run of a program, from its start until the block is left. `times` are those of its windows, in ms."""

    def __init__(self, program):
        program.restore()
        self.watch = subprocess.Popen([FIRST_PAINT, str(program.windows), *program.command], stdin=subprocess.PIPE,
                                      stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                      env=program.environment())
        fields = self.watch.stdout.readline().split()
        self.process = int(fields[0]) if fields else None
        self.times = [float(field) for field in fields[1:]]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.watch.communicate()

    def memory(self):
        """Resident and proportional memory, in MiB."""
        rollup = pathlib.Path(f"/proc/{self.process}/smaps_rollup").read_text("ascii")
        kilobytes = {line.split(":")[0]: int(line.split()[1]) for line in rollup.splitlines()[1:]}
        return kilobytes["Rss"] / 1024, kilobytes["Pss"] / 1024

    def activity(self):
        """Of all threads so far: seconds of processor time, and number of wake-ups."""
        seconds, waits = 0, 0
        for thread in pathlib.Path(f"/proc/{self.process}/task").iterdir():
            seconds += int((thread / "schedstat").read_text("ascii").split()[0]) / 1e9
            status = (thread / "status").read_text("ascii").split("voluntary_ctxt_switches:")
            waits += int(status[1].split()[0])
        return seconds, waits


def programs(build, folder):
    sumlet = [os.path.join(build, "sumlet")]
    found = [Program("bare Qt", [os.path.join(build, "bare_qt")], folder), Program("Sumlet, chooser", sumlet, folder),
             Program("Sumlet, three equations", sumlet, folder, len(EQUATIONS)),
             Program("Sumlet, 200 equations", sumlet, folder, len(SESSION))]
    for program, equations in zip(found[1:], ([], EQUATIONS, SESSION)):
        program.store(equations)
    for peer in PEERS:
        program = Program(peer, [peer], folder)
        if shutil.which(peer) is None:
            print(f"{peer} is not installed.", file=sys.stderr)
            continue
        with Run(program) as run:
            shown = bool(run.times)
        if shown:
            found.append(program)
        else:
            print(f"{peer} shows no window here.", file=sys.stderr)
    return found


def row(program, bare, idle):
    least, first, last = (function([times[i] for times in program.times])
                          for function, i in ((min, 0), (statistics.median, 0), (statistics.median, 1)))
    with Run(program) as run:
        time.sleep(SETTLED)
        resident, proportional = run.memory()
        start = run.activity()[0]
        time.sleep(ASLEEP - SETTLED)
        before = run.activity()
        time.sleep(idle)
        seconds, waits = (after - earlier for after, earlier in zip(run.activity(), before))
    values = {"first": first, "last": last, "start": start * 1000, "resident": resident,
              "proportional": proportional}
    bare = bare or values
    cell = {key: f"{value:.0f} ({value / bare[key]:.2f})" for key, value in values.items()}
    windows = cell["last"] if program.windows > 1 else ""
    return values, (f"| {program.name} | {cell['first']} | {least:.0f} | {windows} | {cell['start']} | "
                    f"{cell['resident']} | {cell['proportional']} | {max(seconds, 0) * 1000:.1f} | {max(waits, 0)} |")


def further(few, many, count):
    """The cost of each further window, from sessions with few and with many windows."""
    made, painted, memory = ((many[key] - few[key]) / count for key in ("first", "last", "resident"))
    return (f"Each of {count} further windows: {made:.1f} ms until made, {painted:.1f} ms until painted, "
            f"{memory * 1024:.0f} KiB resident.")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", help="the build folder")
    parser.add_argument("--runs", type=int, default=11, help="starts of each program (11)")
    parser.add_argument("--idle", type=float, default=10, help="seconds of idling (10)")
    options = parser.parse_args()
    build = os.path.abspath(options.folder)
    global FIRST_PAINT
    FIRST_PAINT = os.path.join(build, "first_paint")
    with tempfile.TemporaryDirectory() as folder:
        measured = programs(build, folder)
        for _ in range(options.runs):
            for program in measured:
                with Run(program) as run:
                    program.times.append(run.times)
        print("| | first window, ms | least | last window | processor, ms | resident, MiB | proportional, MiB | "
              f"{options.idle:g} s idle: processor, ms | wake-ups |")
        print("|---|---|---|---|---|---|---|---|---|")
        values = []
        for program in measured:
            taken, line = row(program, values[0] if values else None, options.idle)
            values.append(taken)
            print(line, flush=True)
        print("\n" + further(values[2], values[3], len(SESSION) - len(EQUATIONS)))


if __name__ == "__main__":
    main()
