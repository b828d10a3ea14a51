#!/usr/bin/env python3
"""Times sumlet-eval beside other calculators of this machine, on the same work: peers.py [--runs N] PROGRAM

Writes each document in the language of each program, runs the programs in turn, so that a busy moment of the
machine hits them all, and prints the median time of a whole process as a Markdown table. The number behind a
peer's time is how many times as long as sumlet-eval it took, the median of the ratios of all turns. A peer that is missing, or fails on a document, or
computes another value than most, gets a word in place of a time.
"""

import argparse
import os
import random
import shutil
import statistics
import subprocess
import tempfile
import time

LIMIT = 20  # seconds for one process; a longer run is reported as "too slow"
AWK_FUNCTIONS = "function max(a,b){return a>b?a:b}\nfunction abs(a){return a<0?-a:a}\n"
BC_FUNCTIONS = "scale=10\ndefine max(a,b){if(a>b)return(a);return(b)}\ndefine abs(a){if(a<0)return(-a);return(a)}\n"

# A document is a list of assignments, (name, expression), with the operators and functions that all languages share.
# Its result is the value of the last name.


def assignments(count):
    """Lines with two or three operations. Values stay small and positive, and rounding errors do not accumulate."""
    chance = random.Random(count)
    names = ["x" + chr(ord("a") + i) for i in range(26)]
    forms = ["({a}+{n})/2", "({a}+{b})/4+{n}", "sqrt({a}*{b}+{n})", "max({a},{b})/2+{n}", "abs({a}-{b})/2+{n}"]
    lines = [(name, str(1 + i % 9)) for i, name in enumerate(names[:count - 1])]
    while len(lines) < count:
        form = chance.choice(forms)
        lines.append((names[len(lines) % 26], form.format(a=chance.choice(names[:len(lines)]),
                                                          b=chance.choice(names[:len(lines)]),
                                                          n=f"{chance.uniform(1, 9):.2f}")))
    return lines


def new_names(count):
    """Such lines, each with a new name of letters only, that use any of the earlier names."""
    chance = random.Random(count)
    names = ["v" + "".join(chr(ord("a") + i // 26**place % 26) for place in range(4)) for i in range(count)]
    forms = ["({a}+{n})/2", "({a}+{b})/4+{n}", "sqrt({a}*{b}+{n})", "max({a},{b})/2+{n}", "abs({a}-{b})/2+{n}"]
    lines = [(name, str(1 + i)) for i, name in enumerate(names[:3])]
    for i in range(3, count):
        lines.append((names[i], chance.choice(forms).format(a=chance.choice(names[:i]), b=chance.choice(names[:i]),
                                                            n=f"{chance.uniform(1, 9):.2f}")))
    return lines


def one_line(count):
    chance = random.Random(count)
    signs = ["+", "*", "-", "/", "+"]
    return [("x", "1" + "".join(f"{signs[i % 5]}{chance.uniform(1, 9):.1f}" for i in range(count)))]


def nested_left(depth):
    return [("x", "(" * depth + "1" + "+1)" * depth)]


def nested_right(depth):
    return [("x", "(1+" * depth + "1" + ")" * depth)]


DOCUMENTS = {
    "10 lines": assignments(10),
    "10,000 lines, few names": assignments(10_000),
    "10,000 lines, a new name each": new_names(10_000),
    "one line of 10,000 operators": one_line(10_000),
    "one line of 100,000 operators": one_line(100_000),
    "10,000 parentheses, opening left": nested_left(10_000),
    "100,000 parentheses, opening left": nested_left(100_000),
    "100,000 parentheses, opening right": nested_right(100_000),
}


def sumlet_source(lines):
    return "".join(f"{name}={value}\n" for name, value in lines)


def awk_source(lines):
    body = "".join(f"{name}={value}\n" for name, value in lines)
    return f'{AWK_FUNCTIONS}BEGIN {{\n{body}printf "%.10f\\n", {lines[-1][0]}\n}}\n'


def bc_source(lines):
    return BC_FUNCTIONS + sumlet_source(lines) + lines[-1][0] + "\n"


def python_source(lines):
    return "from math import sqrt\n" + sumlet_source(lines) + f"print({lines[-1][0]})\n"


def lua_source(lines):
    functions = "local max, abs, sqrt = math.max, math.abs, math.sqrt\n"
    return functions + sumlet_source(lines) + f'print(string.format("%.10f", {lines[-1][0]}))\n'


# name: the command in front of the document's file, and the function that writes the document
PEERS = {
    "luajit": (["luajit"], lua_source),
    "mawk": (["mawk", "-f"], awk_source),
    "gawk": (["gawk", "-f"], awk_source),
    "bc": (["bc", "-q"], bc_source),
    "python3": (["python3", "-I", "-S"], python_source),
}


def result_of(command):
    """The value that a command prints, or the reason why there is none."""
    try:
        run = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=LIMIT,
                             check=False)
    except subprocess.TimeoutExpired:
        return "too slow"
    if run.returncode < 0:
        return "crashes"
    try:
        return float(run.stdout)
    except ValueError:
        return "fails"


def same_value(a, b):
    return abs(a - b) <= 1e-6 * max(abs(a), abs(b))


def seconds(command, silence):
    start = time.perf_counter()
    process = os.posix_spawn(command[0], command, os.environ, file_actions=silence)
    os.waitpid(process, 0)
    return time.perf_counter() - start


def measure(commands, runs):
    """The seconds of each command in each round."""
    silence = [(os.POSIX_SPAWN_OPEN, 0, os.devnull, os.O_RDONLY, 0)]
    silence += [(os.POSIX_SPAWN_OPEN, stream, os.devnull, os.O_WRONLY, 0) for stream in (1, 2)]
    times = {name: [] for name in commands}
    chance = random.Random(runs)
    for _ in range(runs):
        for name in chance.sample(list(commands), len(commands)):  # so that no program always follows the same other one
            times[name].append(seconds(commands[name], silence))
    return times


def compare(lines, programs, folder, runs):
    """A table cell for each program on one document."""
    commands, cells, values = {}, {}, {}
    for name, (command, write) in programs.items():
        path = os.path.join(folder, name)
        with open(path, "w", encoding="ascii") as file:
            file.write(write(lines))
        executable = shutil.which(command[0])
        if executable is None:
            cells[name] = "missing"
            continue
        commands[name] = [executable, *command[1:], path]
        values[name] = result_of(commands[name])
    numbers = [value for value in values.values() if isinstance(value, float)]
    for name, value in values.items():
        if isinstance(value, str):
            cells[name] = value
        elif 2 * sum(same_value(value, other) for other in numbers) <= len(numbers):
            cells[name] = f"differs ({value:g})"
    times = measure({name: command for name, command in commands.items() if name not in cells}, runs)
    ours = times.get("sumlet-eval")
    for name, turns in times.items():
        cells[name] = f"{statistics.median(turns) * 1000:.1f} ms"
        if ours and name != "sumlet-eval":
            cells[name] += f" ({statistics.median(theirs / own for theirs, own in zip(turns, ours)):.2f})"
    return [cells[name] for name in programs]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the sumlet-eval to measure")
    parser.add_argument("--runs", type=int, default=31, help="runs of each program on each document (31)")
    options = parser.parse_args()
    programs = {"sumlet-eval": ([os.path.abspath(options.program)], sumlet_source), **PEERS}
    print("| |", " | ".join(programs), "|")
    print("|---" * (len(programs) + 1) + "|")
    with tempfile.TemporaryDirectory() as folder:
        for title, lines in DOCUMENTS.items():
            print(f"| {title} |", " | ".join(compare(lines, programs, folder, options.runs)), "|", flush=True)


if __name__ == "__main__":
    main()
