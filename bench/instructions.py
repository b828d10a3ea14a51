#!/usr/bin/env python3
"""Counts the instructions that sumlet-eval executes, which does not depend on the load of the machine: instructions.py PROGRAM

Prints a Markdown table of the documents of peers.py, with the instructions of a line or operator more as the text
grows, and then where those of the 10,000 lines go. Needs valgrind.
"""

import argparse
import collections
import os
import random
import re
import subprocess
import tempfile

from peers import assignments, nested_left, nested_right, new_names, one_line, sumlet_source


def rewritten(count):
    """Lines that the parser rejects, so that the engine rewrites them."""
    chance = random.Random(count)
    forms = ["2({n}+x)", "|x-{n}|", "2x", "1,000+{n}", "{n} y", "|{n}-x|*y", "(x)({n})+2", "--{n}+x", "2sqrt({n})+y"]
    lines = [("x", "3"), ("y", "-1.5")]
    while len(lines) < count:
        lines.append(("z", chance.choice(forms).format(n=f"{chance.uniform(1, 9):.2f}")))
    return lines


# title, function that makes the document, sizes
DOCUMENTS = [("lines, few names", assignments, (10, 1_000, 10_000)),
             ("lines, a new name each", new_names, (10, 1_000, 10_000)),
             ("lines that are rewritten", rewritten, (10, 1_000, 10_000)),
             ("operators on a line", one_line, (100, 1_000, 10_000, 100_000)),
             ("parentheses, opening left", nested_left, (100, 1_000, 10_000, 100_000)),
             ("parentheses, opening right", nested_right, (100, 1_000, 10_000, 100_000))]
PROFILED = "10000 lines, few names"


def count(program, lines, folder, name):
    """The instructions of a whole process, and the file with its profile."""
    document, profile = os.path.join(folder, name), os.path.join(folder, name + ".profile")
    with open(document, "w", encoding="ascii") as file:
        file.write(sumlet_source(lines))
    run = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=" + profile, program, document],
                         capture_output=True, text=True, check=True)
    return int(re.search(r"Collected : (\d+)", run.stderr)[1]), profile


def print_profile(profile, most):
    listing = subprocess.run(["callgrind_annotate", "--threshold=100", profile], capture_output=True, text=True,
                             check=True).stdout
    rows = re.findall(r"^ *([\d,]+) \([ \d.]+%\)  (?:.*?:)?(\S.*?)(?: \[/[^\]]*\])?$", listing, re.M)
    counts = collections.Counter()
    for instructions, function in rows[1:]:
        # Removes the arguments, and adds the recursive calls of a function to the others.
        name = re.sub(r"\[abi:\w+\]|\((?!anonymous).*", "", function.removeprefix("sumlet::"))
        counts[name.replace("(anonymous namespace)::", "")] += int(instructions.replace(",", ""))
    total = int(rows[0][0].replace(",", ""))
    for name, instructions in counts.most_common(most):
        print(f"| {name} | {instructions / 1e6:.1f} | {instructions / total:.1%} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the sumlet-eval to count")
    parser.add_argument("--profile", type=int, default=12, help="functions to list (12)")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        print("| | million instructions | each further one |\n|---|---|---|")
        for title, make, sizes in DOCUMENTS:
            before = None
            for size in sizes:
                name = f"{size} {title}"
                instructions, profile = count(os.path.abspath(options.program), make(size), folder, name)
                each = f"{(instructions - before[1]) / (size - before[0]):,.0f}" if before else ""
                print(f"| {name} | {instructions / 1e6:.1f} | {each} |", flush=True)
                before = size, instructions
                if name == PROFILED:
                    kept = profile
        print("\n| function | million instructions | share |\n|---|---|---|")
        print_profile(kept, options.profile)


if __name__ == "__main__":
    main()
