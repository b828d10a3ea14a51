"""Reads the accessible tree of the running window program while it works the keyboard.

Its desktop, its bus and the program are those of accessibility_test.sh.
"""

import subprocess
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 30  # seconds
PARTS = (pyatspi.ROLE_TABLE_CELL, pyatspi.ROLE_LIST_ITEM)  # of a control, named by their text, which may be empty

told = []  # what a screen reader has been told, in this order


def until(what, condition):
    """The first value of `condition` that is true. What is on its way out does not answer and counts as false."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            if value := condition():
                return value
        except (GLib.Error, AttributeError):
            pass
        time.sleep(0.02)
    raise SystemExit(f"accessibility_tree.py: not so after {PATIENCE} s: {what()}")


def press(*keys):
    subprocess.run(["xdotool", "key", "--delay", "20", *keys], check=True)


def within(accessible):
    yield accessible
    for child in accessible:
        if child is not None:
            yield from within(child)


def has(accessible, *states):
    return all(map(accessible.getState().contains, states))


def window(name, role=pyatspi.ROLE_FRAME):
    def find():
        programs = [program for program in pyatspi.Registry.getDesktop(0) if program.name == "Sumlet"]
        return next((w for p in programs for w in p
                     if w.name == name and w.getRole() == role and has(w, pyatspi.STATE_ACTIVE)), None)

    return until(lambda: f'the window "{name}" of role {role} is active', find)


def name_of(control):
    """What a screen reader calls it; the toolkit gives a list that drops down the name of its label in this way only."""
    labels = [r.getTarget(0) for r in control.getRelationSet() if r.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    return labels[0].name if labels else control.name


def controls(shown):
    """Those that the user can work, by their names."""
    return {name_of(a): a for a in within(shown) if a.getRole() not in PARTS
            and has(a, pyatspi.STATE_FOCUSABLE, pyatspi.STATE_SHOWING, pyatspi.STATE_ENABLED)}


def go_to(shown, name):
    def focused():
        return next((n for n, control in controls(shown).items() if has(control, pyatspi.STATE_FOCUSED)), "none")

    for _ in range(len(controls(shown)) + 1):
        if (before := focused()) == name:
            return
        press("Tab")
        until(lambda: f'Tab leaves "{before}" of "{shown.name}"', lambda: focused() != before)
    raise SystemExit(f'accessibility_tree.py: Tab does not come to "{name}"')


def check(name, *expected, role=pyatspi.ROLE_FRAME):
    """The window and its controls by name, once these are all there are, and Tab has come to each of them."""
    shown = window(name, role)
    until(lambda: f'"{name}" has {expected} and not {list(controls(shown))}',
          lambda: sorted(controls(shown)) == sorted(expected))
    for control in expected:
        go_to(shown, control)
    return shown, controls(shown)


def choose_from_help_menu(item):
    def has_focus():
        found = next((a for a in within(window("Sumlet")) if a.name == item and has(a, pyatspi.STATE_SHOWING)), None)
        return found and has(found, pyatspi.STATE_FOCUSED) or press("Down")

    window("Sumlet")
    press("alt+f", "Left")  # the last menu is next to the first
    until(lambda: f'the keys come to "{item}"', has_focus)
    press("Return")


def calculate(editor, equation, result):
    told.clear()
    press("ctrl+a")
    subprocess.run(["xdotool", "type", "--delay", "20", "--", equation], check=True)
    until(lambda: f"{equation} has the description {result} and not {editor.description}",
          lambda: editor.description == result)
    until(lambda: f"{result} is told; told is {told}", lambda: told[-1:] == [result])


window("Template Chooser")  # a program hears of listeners from the moment when it can be seen
pyatspi.Registry.registerEventListener(lambda event: told.append(event.source.description),
                                       "object:property-change:accessible-description")
check("Template Chooser", "Templates", "Choose", "Cancel")
go_to(window("Template Chooser"), "Templates")
press("Down")
go_to(window("Template Chooser"), "Edit...")
press("space")
go_to(check("Template Chooser", "Templates", "Choose", "Cancel", "Done", "Rename", "Delete")[0], "Rename")
press("space")
check("Untitled", "Provide a new name for this Template:", "Cancel", "Save", role=pyatspi.ROLE_DIALOG)
press("Tab", "ctrl+a", "Delete", "Return")
window("Sumlet", pyatspi.ROLE_DIALOG)  # an alert
press("Return")
window("Untitled", pyatspi.ROLE_DIALOG)
press("Escape")
go_to(window("Template Chooser"), "Templates")
press("Home", "Return")

equation, areas = check("Sumlet", "Equation", "Result")
go_to(equation, "Equation")
calculate(areas["Equation"], "6*7", "42")
calculate(areas["Equation"], "6*foo", '"*" Error: Operator Requires Two Arguments')

press("ctrl+comma")
check("Preferences", "Restore Open Equations on Startup", "Text Size")
press("Escape")
choose_from_help_menu("Sumlet Help")
check("Help", "The line language")
press("Escape")
choose_from_help_menu("About Sumlet")
until(lambda: "the about window names the program", lambda: "Sumlet" in controls(window("About Sumlet")))
check("About Sumlet", *controls(window("About Sumlet")))
