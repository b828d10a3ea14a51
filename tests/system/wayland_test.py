"""Works the window program on a Wayland compositor that has no screen. The program keeps the places of its windows,
which such a desktop does not tell."""

import json
import os
import subprocess
import sys
import unittest

import settings_file
from desktop import Desktop
from running_program import enter_namespaces, skip_without


def windows_in(node):
    """The program's windows below a node, each "front" or "back", its title, and its width or "full"."""
    if node.get("app_id") == "com.fernhill.sumlet":
        size = "full" if node["fullscreen_mode"] else node["rect"]["width"]
        yield f'{"front" if node["focused"] else "back"} {node["name"]} {size}'
    for child in node["nodes"] + node["floating_nodes"]:
        yield from windows_in(child)


class Wayland(Desktop):
    # The program hears by the toolkit's log that the compositor has gone.
    variables = {**Desktop.variables, "QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": "wayland-1",
                 "QT_LOGGING_RULES": None}

    def setUp(self):
        super().setUp()
        config = self.folder / "sway.conf"
        config.write_text('xwayland disable\ndefault_border none\nfor_window [app_id=".*"] floating enable\n')
        headless = {"WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": 1,
                    "WAYLAND_DISPLAY": None}
        self.compositor = self.start_helper(["sway", "-c", config], SWAYSOCK=self.folder / "sway", **headless)
        self.expect(0, lambda: self.tool("swaymsg", "-t", "get_version").returncode)
        # A keyboard that stays, because the program loses keys while a keyboard comes up.
        self.start_helper(["wtype", "-s", "100000000"])

    def tool(self, *command, **options):
        return subprocess.run(command, env=self.environment(SWAYSOCK=self.folder / "sway"), check=False, timeout=60,
                              **{"stdout": subprocess.PIPE, "stderr": subprocess.DEVNULL, **options})

    def press(self, *keys):
        for key in keys:
            *modifiers, name = key.split("+")
            held = [word for modifier in modifiers for word in ("-M", modifier)]
            self.tool("wtype", *held, "-k", name)

    def type(self, text):
        self.tool("wtype", "-d", "20", "--", text)

    def set_clipboard(self, text):
        self.tool("wl-copy", input=text.encode(), stdout=subprocess.DEVNULL)

    def clipboard(self):
        return self.tool("timeout", "5", "wl-paste", "-n").stdout.decode(errors="replace")

    def windows(self):
        return sorted(windows_in(json.loads(self.tool("swaymsg", "-rt", "get_tree").stdout)))

    def open(self, *windows):
        self.program = self.start()
        self.expect(list(windows), self.windows)

    def test_works_and_restores_its_windows(self):
        settings_file.write(self.settings, "300 200 365 234 1+1", "-20 50 300 200 x=2")
        self.open("back Sumlet 300", "front Sumlet 365")
        self.expect_text("1+1")
        text = "// 1\u00A0000 € 😀\n\nx=6*8\n"
        self.paste(text, "48")

        # A second start hands its file over.
        document = self.folder / "in.txt"
        document.write_text("2+2")
        self.assertEqual(self.start(document).wait(), 0)
        self.expect_text("2+2")
        self.press("ctrl+w")
        self.expect_text(text)
        self.press("F11")
        self.expect(["back Sumlet 300", "front Sumlet full"], self.windows)
        self.quit_program()
        self.expect_stored(f"300 200 365 234 {text}", "-20 50 300 200 x=2")

        self.open("back Sumlet 300", "front Sumlet full")
        self.calculate("7*7", "49")
        self.compositor.kill()
        self.assertNotEqual(self.program.wait(), 0, "without a display")
        self.expect_stored("300 200 365 234 7*7", "-20 50 300 200 x=2")


if __name__ == "__main__":
    skip_without("sway", "swaymsg", "wtype", "wl-copy", "wl-paste")
    # The compositor refuses to run as root.
    if os.geteuid() == 0 and not enter_namespaces("--user", "--map-user=1000", "--map-group=1000"):
        sys.exit(77)
    unittest.main()
