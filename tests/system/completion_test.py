"""Completes command lines in an interactive bash that loads the installed files: completion_test.py PROGRAM INSTALL_SCRIPT.

Skipped with status 77 where bash-completion is missing, which finds the file of a command.
"""

import os
import pathlib
import pty
import subprocess
import sys
import tempfile

LOADER = "/usr/share/bash-completion/bash_completion"
PROGRAM, INSTALL_SCRIPT = sys.argv[1:]
TYPED = [("sumlet --vers\t", "sumlet 0."),
         ("sumlet-eval --li\t -e 1+1", "1  1+1  2"),
         ("sumlet-eval --lines 'an eq\t", "1  6*7  42")]

if not os.path.exists(LOADER):
    print("skipped: there is no bash-completion")
    sys.exit(77)
with tempfile.TemporaryDirectory() as folder:
    subprocess.run(["cmake", "-DCMAKE_INSTALL_PREFIX=" + folder, "-P", INSTALL_SCRIPT], stdout=subprocess.DEVNULL, check=True)
    pathlib.Path(folder, "an equation.txt").write_text("6*7", encoding="ascii")
    process, terminal = pty.fork()
    if process == 0:
        os.chdir(folder)
        os.execvpe("bash", ["bash", "--norc"], os.environ | {
            "XDG_DATA_DIRS": folder + "/share", "PATH": os.path.dirname(PROGRAM) + ":" + os.environ["PATH"],
            "INPUTRC": "/dev/null", "TERM": "dumb", "HOME": folder})
    os.write(terminal, "".join(f"{line}\n" for line in [f"source {LOADER}", *(t for t, _ in TYPED), "exit"]).encode())
    output = b""
    try:
        while part := os.read(terminal, 4096):
            output += part
    except OSError:  # the terminal has ended
        pass
    os.waitpid(process, 0)
lines = output.decode().splitlines()
for typed, printed in TYPED:
    assert any(line.startswith(printed) for line in lines), f"{typed!r} does not print {printed!r}:\n" + "\n".join(lines)
