#!/usr/bin/env python3
"""Puts each fault of scripts/mutations.txt into a copy of the sources and says which test sees it.

    scripts/mutations.py [TEXT...]     only mutations with one of the texts in their file or their old text

Builds below build/mutations, without the window program, at the lowest priority. A mutation is seen when it does not
compile, or when a test fails, crashes or takes longer than a minute. Exits with 1 when a mutation that is not marked as
unseen passes all tests, or when its old text is not found exactly once.
"""

import pathlib
import re
import shutil
import subprocess
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent
SCRATCH = PROJECT / "build" / "mutations"
SECONDS_PER_TEST = 60

# The tests that cover a folder, quick ones first; CMake targets, and arguments.
CORPUS = SCRATCH / "source" / "fuzz" / "corpus"
ENGINE = [["engine_tests"], ["replay_engine", CORPUS / "engine"], ["replay_rewriting", CORPUS / "rewriting"],
          ["replay_rewriting", CORPUS / "random_words", "--random"]]
PERSISTENCE = [
    ["persistence_tests"],
    ["replay_key_list", CORPUS / "key_list", "--damage"],
    ["replay_settings", CORPUS / "settings", "--damage"],
]
PLIST = [["plist_tests"], ["replay_property_list", CORPUS / "property_list", "--damage"]]
FRAMEWORK = [["framework_tests"], ["replay_text_import", CORPUS / "text_import", "--damage"]]
TESTS = {
    "src/engine/": ENGINE,
    "src/framework/file/": PERSISTENCE + PLIST,
    "src/framework/text/date": PLIST,
    "src/framework/": FRAMEWORK + ENGINE + PERSISTENCE + PLIST,
    "src/persistence/": PERSISTENCE,
    "src/templates/": PERSISTENCE,
    "src/plist/": PLIST,
}


class Mutation:
    def __init__(self, block):
        lines = block.splitlines()
        self.file = lines[0]
        self.old = lines[1].removeprefix("- ")
        self.new = lines[2].removeprefix("+").removeprefix(" ")
        self.unseen = lines[3].removeprefix("unseen ") if len(lines) > 3 else None

    def __str__(self):
        return f"{self.file}: {self.old}  ->  {self.new or '(nothing)'}"

    def tests(self):
        return next(tests for folder, tests in TESTS.items() if self.file.startswith(folder))

    def apply_to(self, text):
        """The changed text; None unless the old one is found once."""
        pattern = r"\s+".join(re.escape(word) for word in self.old.split())
        changed, count = re.subn(pattern, lambda _: self.new, text)
        return changed if count == 1 else None


def read_mutations():
    text = (PROJECT / "scripts" / "mutations.txt").read_text(encoding="utf-8")
    blocks = "\n".join(line for line in text.splitlines() if not line.startswith("# ")).split("\n\n")
    return [Mutation(block.strip("\n")) for block in blocks if block.strip()]


def run(command, seconds=None):
    """Exit status and output; the status is None after a time-out."""
    try:
        done = subprocess.run(
            ["nice", "-n", "19", *map(str, command)], cwd=SCRATCH, capture_output=True, text=True, errors="replace",
            timeout=seconds, check=False)
    except subprocess.TimeoutExpired:
        return None, ""
    return done.returncode, done.stdout + done.stderr


def build(targets):
    return run(["cmake", "--build", "build", "--target", *targets])


def prepare():
    shutil.rmtree(SCRATCH / "source", ignore_errors=True)
    SCRATCH.mkdir(parents=True, exist_ok=True)
    files = subprocess.run(["git", "ls-files", "-z"], cwd=PROJECT, capture_output=True, text=True, check=True).stdout
    for name in filter(None, files.split("\0")):
        copy = SCRATCH / "source" / name
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(PROJECT / name, copy, follow_symlinks=False)
    status, output = run([
        "cmake", "-G", "Ninja", "-S", "source", "-B", "build", "-DCMAKE_BUILD_TYPE=RelWithDebInfo",
        "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1", "-DSUMLET_BUILD_GUI=OFF", "-DBUILD_TESTING=ON"])
    if status != 0:
        sys.exit(output)


def first_failure(tests):
    """Which of the tests fails; None when all pass."""
    for command in tests:
        status, output = run([SCRATCH / "build" / command[0], *command[1:]], SECONDS_PER_TEST)
        if status is None:
            return f"{command[0]} hangs"
        if status != 0:
            failed = re.findall(r"^\[  FAILED  \] (\S+) \(", output, re.M) + re.findall(r"^Broken: (.*)", output, re.M)
            return ", ".join(sorted(set(failed))) or f"{command[0]} crashes"
    return None


def try_mutation(mutation):
    """What sees it; None when nothing does."""
    path = SCRATCH / "source" / mutation.file
    original = path.read_text(encoding="utf-8")
    changed = mutation.apply_to(original)
    if changed is None:
        raise ValueError("the old text is not there exactly once")
    path.write_text(changed, encoding="utf-8")
    try:
        status, _ = build([command[0] for command in mutation.tests()])
        return "the compiler" if status != 0 else first_failure(mutation.tests())
    finally:
        path.write_text(original, encoding="utf-8")


def main():
    chosen = [m for m in read_mutations() if not sys.argv[1:] or any(t in m.file + m.old for t in sys.argv[1:])]
    prepare()
    everything = {command[0]: command for mutation in chosen for command in mutation.tests()}
    status, output = build(everything)
    if status != 0:
        sys.exit(output)
    if failure := first_failure(everything.values()):
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
    print(f"{len(chosen)} mutations, {unseen} unseen, {wrong} of them unexpected or not applicable")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
