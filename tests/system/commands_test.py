"""Works the window program as a user does: drags, pastes, exports and imports."""

import unittest

from desktop import Desktop, xdotool


class Commands(Desktop):
    def setUp(self):
        super().setUp()
        self.open_windows("100 80 365 234 1+1")

    def test_the_dragged_result_arrives_once(self):
        def drag():
            self.calculate("x=2\nx*21", "42")
            self.press("Tab", "ctrl+a")
            self.point(15, 236, "mousedown", 1)
            for y in (220, 190, 160, 120):
                self.point(15, y, "sleep", 0.05)
            xdotool("mouseup", 1)
            self.type("+7")  # the equation takes what is typed while the result has the focus
            return self.eventually("x=2\nx*2142+7", self.text, patience=5)

        self.expect("x=2\nx*2142+7", drag)
        self.point(15, 242, "click", 1)
        self.type("8")
        self.expect_text("x=2\nx*2142+78")

    def test_a_text_survives_paste_undo_export_and_import(self):
        text = "// 1\u00A0000 € 𝜋 😀\n\n6*7\n"
        self.paste(text, "42")
        self.press("ctrl+z")
        self.expect_text("1+1")
        self.press("ctrl+shift+z")
        self.expect_text(text)
        exported, other = self.folder / "exported.txt", self.folder / "other.txt"
        self.press("ctrl+shift+s")
        self.expect(True, lambda: self.title() in ("Save As", "Save File"))
        self.press("ctrl+a")
        self.type(str(exported))
        self.press("Return")
        self.expect(text.encode(), lambda: exported.exists() and exported.read_bytes())
        other.write_text("2+2\n")
        self.expect_title("Sumlet")
        self.press("ctrl+o")
        self.expect_title("Select Text (.txt) files to import as equations.")
        self.type(f'"{exported}" "{other}"')
        self.press("Return")
        self.expect_text("2+2")


if __name__ == "__main__":
    unittest.main()
