#!/usr/bin/env python3
"""Puts each fault of scripts/mutations.txt into a copy of the sources and reports which test detects it.

    scripts/mutations.py [TEXT...]     only the mutations whose folder or old text contains one of the texts

Builds below build/mutations at the lowest priority. A mutation is detected if it does not compile, or if a test fails,
crashes or takes too long. Exits with 1 if no test detects a mutation that is not marked as unseen, if an old text does
not occur exactly once, or if a test fails without a mutation.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent
SCRATCH = PROJECT / "build" / "mutations"
SECONDS_PER_TEST = 60
SECONDS_OF_SYSTEM_TESTS = 300
MOST_MEMORY = 8 << 30  # bytes of address space of a test, because a mutation can fill all memory

# The tests that cover a folder, in the order of running: a CMake target and its arguments. For a program, the argument
# is a regular expression that ctest matches against the names of tests.
PROGRAMS = ["sumlet", "sumlet-eval"]
CORPUS = SCRATCH / "source" / "fuzz" / "corpus"
ENGINE = [
    ["engine_tests", "--gtest_filter=Language.*"],
    ["sumlet-eval", r"^System\.sumlet_eval_test$"],
    ["replay_rewriting", CORPUS / "rewriting"],
    ["replay_rewriting", CORPUS / "random_words", "--random", "20000"],
    ["replay_engine", CORPUS / "engine"],
    ["replay_long_number", CORPUS / "random_long_numbers", "--random", "150"],
    ["engine_tests", "--gtest_filter=Hostile.*"],
]
PERSISTENCE = [
    ["persistence_tests"],
    ["replay_key_list", CORPUS / "key_list", "--damage"],
    ["replay_key_list", CORPUS / "random_look_ups", "--random", "5000"],
    ["replay_settings", CORPUS / "settings", "--damage"],
]
PLIST = [["plist_tests"], ["replay_property_list", CORPUS / "property_list", "--damage"]]
FRAMEWORK = [["framework_tests"], ["replay_text_import", CORPUS / "text_import", "--damage"]]
WINDOWS = [
    ["ui_tests", "--gtest_filter=-*LongRuns*"],  # without the slowest test
    ["equationwindow_tests"],
    ["template_window_tests"],
    ["shell_tests"],
]
SYSTEM = [["sumlet", r"^System\.(session|second_start)_test$"]]
TESTS = {
    "src/engine": ENGINE,
    "src/equationwindow": WINDOWS + SYSTEM,
    "src/framework/ui": WINDOWS + SYSTEM + [["whole_program_tests"]],
    "src/shell": WINDOWS[::-1] + SYSTEM,
    "src/framework/file": PERSISTENCE + PLIST,
    "src/framework": FRAMEWORK + ENGINE + PERSISTENCE + PLIST,
    "src/persistence": PERSISTENCE,
    "src/templates/templates_manager": PERSISTENCE,
    "src/templates": WINDOWS[::-1] + PERSISTENCE,
    "src/plist": PLIST,
}

# How the test programs, the replays and ctest name what failed.
FAILURE_PATTERNS = [r"^\[  FAILED  \] ([\w.]+)$", r"^Broken: (.*)", r"^\t *\d+ - (\S+) \("]


class Mutation:
    def __init__(self, block):
        lines = block.splitlines()
        self.path = lines[0]  # of a folder or file
        self.old = lines[1].removeprefix("- ")
        self.new = lines[2].removeprefix("+").removeprefix(" ")
        self.unseen = lines[3].removeprefix("unseen ") if len(lines) > 3 else None

    def __str__(self):
        return f"{self.path}: {self.old}  ->  {self.new or '(nothing)'}"

    def tests(self):
        return next(tests for folder, tests in TESTS.items() if self.path.startswith(folder))

    def pattern(self):
        return re.compile(r"\s+".join(re.escape(word) for word in self.old.split()))

    def place(self):
        """The file that holds the old text; None unless it is found exactly once."""
        place = SCRATCH / "source" / self.path
        files = [place] if place.is_file() else [*place.rglob("*.cpp"), *place.rglob("*.h")]
        found = [file for file in files for _ in self.pattern().findall(file.read_text(encoding="utf-8"))]
        return found[0] if len(found) == 1 else None


def read_mutations():
    text = (PROJECT / "scripts" / "mutations.txt").read_text(encoding="utf-8")
    blocks = "\n".join(line for line in text.splitlines() if not line.startswith("# ")).split("\n\n")
    return [Mutation(block.strip("\n")) for block in blocks if block.strip()]


def run(command, seconds=None):
    """Exit status and output; the status is None after a time-out."""
    try:
        done = subprocess.run(
            ["nice", "-n", "19", "prlimit", f"--as={MOST_MEMORY}", *map(str, command)], cwd=SCRATCH, capture_output=True,
            text=True, errors="replace", env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, timeout=seconds,
            check=False)
    except subprocess.TimeoutExpired:
        return None, ""
    return done.returncode, done.stdout + done.stderr


def build(target):
    return run(["cmake", "--build", "build", "--target", target])


def prepare(with_windows):
    shutil.rmtree(SCRATCH / "source", ignore_errors=True)
    SCRATCH.mkdir(parents=True, exist_ok=True)
    files = subprocess.run(["git", "ls-files", "-z"], cwd=PROJECT, capture_output=True, text=True, check=True).stdout
    for name in filter(None, files.split("\0")):
        copy = SCRATCH / "source" / name
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(PROJECT / name, copy, follow_symlinks=False)  # with a new time, so that Ninja builds it again
    status, output = run([
        "cmake", "-G", "Ninja", "-S", "source", "-B", "build", "-DCMAKE_BUILD_TYPE=RelWithDebInfo",
        "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1", f"-DSUMLET_BUILD_GUI={'ON' if with_windows else 'OFF'}",
        "-DBUILD_TESTING=ON"])
    if status != 0:
        sys.exit(output)


def test_command(target, *arguments):
    if target in PROGRAMS:
        return ["ctest", "--test-dir", "build", "--stop-on-failure", "-R", *arguments]
    return [SCRATCH / "build" / target, *arguments]


def first_failure(tests):
    """Builds and runs one test after the other and returns what failed first, or None."""
    for command in tests:
        if build(command[0])[0] != 0:
            return "the compiler"
        limit = SECONDS_OF_SYSTEM_TESTS if command[0] in PROGRAMS else SECONDS_PER_TEST
        status, output = run(test_command(*command), limit)
        if status is None:
            return f"{command[0]} hangs"
        if status != 0:
            failed = [name for pattern in FAILURE_PATTERNS for name in re.findall(pattern, output, re.M)]
            return ", ".join(sorted(set(failed))) or f"{command[0]} crashes"
    return None


def try_mutation(mutation):
    """Runs the tests with the mutation and returns what detects it, or None."""
    path = mutation.place()
    if path is None:
        raise ValueError("the old text is not there exactly once")
    original = path.read_text(encoding="utf-8")
    path.write_text(mutation.pattern().sub(lambda _: mutation.new, original), encoding="utf-8")
    try:
        return first_failure(mutation.tests())
    finally:
        path.write_text(original, encoding="utf-8")


def main():
    chosen = [m for m in read_mutations() if not sys.argv[1:] or any(t in m.path + m.old for t in sys.argv[1:])]
    prepare(any("ui_tests" in command for mutation in chosen for command in mutation.tests()))
    every_test = {tuple(command): command for mutation in chosen for command in mutation.tests()}
    if failure := first_failure(every_test.values()):
        sys.exit(f"fails without any mutation: {failure}")
    wrong = unseen = 0
    for mutation in chosen:
        try:
            seen = try_mutation(mutation)
        except ValueError as error:
            print(f"WRONG   {mutation}\n        {error}", flush=True)
            wrong += 1
            continue
        if seen:
            print(f"seen    {mutation}\n        by {seen}", flush=True)
            continue
        unseen += 1
        wrong += mutation.unseen is None
        print(f"UNSEEN  {mutation}\n        {mutation.unseen or 'by any test'}", flush=True)
    print(f"{len(chosen)} mutations, {unseen} unseen, {wrong} faults of the list or the tests")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
