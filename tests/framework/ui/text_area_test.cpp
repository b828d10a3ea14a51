#include "framework/ui/text_area.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace sumlet {
namespace {

using namespace std::string_literals;

struct Fixture {
  Fixture() {
    area.resize(300, 100);
    area.TextChange = [this](TextArea&) { ++changes; };
    area.show();
    area.activateWindow();
    area.setFocus();
    QCoreApplication::processEvents();
  }
  int changes = 0;
  TextArea area{nullptr};
};

TEST(TextArea, KeepsEveryCharacter) {
  const struct {
    std::string in;
    std::string out;
  } rows[] = {
      {"x=2\n\n", "x=2\n\n"},
      {"1\r\n2\r3\n\r4", "1\n2\n3\n\n4"},      // one kind of line ending
      {"1\u00A0000 \t 2", "1\u00A0000 \t 2"},  // a no-break space
      {"𝜋 + 😀", "𝜋 + 😀"},                      // two UTF-16 units each
      {"\uFEFFx", "\uFEFFx"},                  // a byte order mark is a character
      {"a\0b\x01\x7F"s, "a\0b\x01\x7F"s},      // control characters
      {"a\u2028b\uFFFCc", "a\u2028b\uFFFCc"},  // a line separator, an object's place
      {"e\u0301 שלום", "e\u0301 שלום"},        // combining, right to left
      {"a\xFF\xC3", "a\uFFFD\uFFFD"},          // no UTF-8
  };
  Fixture f;
  for (const auto& row : rows) {
    f.area.SetText(row.in);
    EXPECT_EQ(f.area.Text(), row.out);
    // through the clipboard, out and in
    f.area.selectAll();
    f.area.copy();
    f.area.clear();
    f.area.paste();
    EXPECT_EQ(f.area.Text(), row.out);
  }
}

TEST(TextArea, TellsOfChangesOfTheTextOnly) {
  Fixture f;
  f.area.SetText("one");
  EXPECT_EQ(f.changes, 1);
  for (const Int32 points : {30, 0, 100000}) f.area.SetTextSize(points);
  f.area.selectAll();
  f.area.resize(50, 50);
  QCoreApplication::processEvents();
  EXPECT_EQ(f.changes, 1) << "looks";
  QTest::keyClicks(&f.area, "34");
  EXPECT_EQ(f.changes, 3);
  f.area.undo();
  f.area.undo();
  EXPECT_EQ(f.area.Text(), "one") << "what the program set is no step to undo";
}

TEST(TextArea, Keys) {
  Fixture f;
  QTest::keyClick(&f.area, Qt::Key_1);
  QTest::keyClick(&f.area, Qt::Key_Return, Qt::ShiftModifier);
  QTest::keyClick(&f.area, Qt::Key_2);
  EXPECT_EQ(f.area.Text(), "1\n2");
  f.area.SetReadOnly(true);
  QApplication::clipboard()->setText("9");
  using Key = QKeySequence;
  for (const auto key : {Key::Paste, Key::SelectAll, Key::Copy, Key::Cut, Key::Delete, Key::InsertLineSeparator})
    QTest::keySequence(&f.area, Key(key));
  EXPECT_EQ(f.area.Text(), "1\n2");
  EXPECT_EQ(QApplication::clipboard()->text(), "1\n2");
}

TEST(TextArea, IsBlackOnWhiteOnADarkDesktop) {
  const QPalette bright = QApplication::palette();
  const QPalette dark(Qt::white, QColor(0x30, 0x30, 0x30), Qt::gray, Qt::black, Qt::gray, Qt::white, Qt::red, Qt::black,
                      Qt::black);
  Fixture f;
  f.area.SetTextSize(40);
  f.area.SetText("███");
  for (const QPalette& desktop : {bright, dark}) {
    QApplication::setPalette(desktop);
    for (const bool enabled : {true, false}) {
      f.area.setEnabled(enabled);
      const QImage picture = f.area.grab().toImage();
      EXPECT_EQ(picture.pixelColor(250, 50), QColor(Qt::white));
      EXPECT_EQ(picture.pixelColor(30, 35), QColor(Qt::black));
      EXPECT_NE(picture.pixelColor(0, 50), QColor(Qt::white)) << "the border";
    }
  }
  QApplication::setPalette(bright);
}

TEST(TextArea, HidesItsSelectionFromOtherControlsOnly) {
  Fixture f;
  for (const auto reason :
       {Qt::TabFocusReason, Qt::MouseFocusReason, Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QCoreApplication::sendEvent(&f.area, &out);
    const bool hidden = f.area.palette().color(QPalette::Inactive, QPalette::Highlight) == Qt::white;
    EXPECT_EQ(hidden, reason == Qt::TabFocusReason || reason == Qt::MouseFocusReason) << reason;
  }
}

// Keeping words together would take minutes here, and the time limit of the test run would end it.
TEST(TextArea, BearsVeryLongLines) {
  Fixture f;
  f.area.SetText("short\n" + std::string(1'000'000, '1'));
  QCoreApplication::processEvents();
  EXPECT_EQ(f.area.Text().size(), 1'000'006);
  f.area.SetText("short");
  EXPECT_EQ(f.area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
  f.area.insertPlainText(QString(500'000, u'1'));
  f.area.undo();
  EXPECT_EQ(f.area.Text(), "short");
  EXPECT_EQ(f.area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

}  // namespace
}  // namespace sumlet
