#include "framework/ui/text_area.h"

#include <QClipboard>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <string>
#include <tuple>

#include "framework/ui/qt_text.h"
#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

using namespace std::string_literals;

class TextAreaTest : public WindowFixture {
 protected:
  TextAreaTest() {
    area.resize(300, 100);
    area.show();
    area.activateWindow();
    area.setFocus();
    QCoreApplication::processEvents();
  }
  TextArea area{nullptr};
};

TEST_F(TextAreaTest, KeepsEveryCharacter) {
  // line ends of three kinds, a byte order mark, a no-break space, two UTF-16 units, a combining character, right to
  // left, controls, a line separator, an object's place, no UTF-8
  area.SetText("\uFEFF1\r\n2\r3\n\n\u00A0 𝜋 e\u0301 שלום \0\x01\x7F\u2028\uFFFC\xFF\xC3\n"s);
  const String kept = "\uFEFF1\n2\n3\n\n\u00A0 𝜋 e\u0301 שלום \0\x01\x7F\u2028\uFFFC\uFFFD\uFFFD\n"s;
  EXPECT_EQ(area.Text(), kept);
  for (const auto key : {QKeySequence::SelectAll, QKeySequence::Copy, QKeySequence::Delete, QKeySequence::Paste})
    QTest::keySequence(&area, key);
  EXPECT_EQ(area.Text(), kept) << "through the clipboard, out and in";
}

TEST_F(TextAreaTest, Keys) {
  EXPECT_FALSE(area.document()->isUndoAvailable()) << "nothing has been typed";
  QTest::keyClicks(&area, "12");
  QTest::keyClick(&area, Qt::Key_Left);
  QTest::keyClick(&area, Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(area.Text(), "1\n2");
  area.SetReadOnly(true);
  QApplication::clipboard()->setText("9");
  using Key = QKeySequence;
  for (const auto key : {Key::Paste, Key::SelectAll, Key::Copy, Key::Cut, Key::Delete, Key::InsertLineSeparator})
    QTest::keySequence(&area, Key(key));
  EXPECT_EQ(area.Text(), "1\n2");
  EXPECT_EQ(QApplication::clipboard()->text(), "1\n2");
}

TEST_F(TextAreaTest, IsBlackOnWhiteOnADarkDesktop) {
  SetDarkDesktop();
  TextArea dark(nullptr);
  dark.resize(300, 100);
  dark.SetTextSize(40);
  dark.SetText("███");
  const QImage picture = dark.grab().toImage();
  EXPECT_EQ(picture.pixelColor(250, 50), QColor(Qt::white));
  EXPECT_EQ(picture.pixelColor(30, 35), QColor(Qt::black));
}

TEST_F(TextAreaTest, ADoubleClickSelectsTheWholeNumberOrName) {
  // a line, the index of the character that is clicked, what is selected then
  const std::tuple<const char*, int, const char*> cases[] = {
      {"1+12.75*2", 3, "12.75"},        // a number
      {"1,234,567+1", 3, "1,234,567"},  // a number with separators
      {"(1,000)", 1, "1"},              // a comma that separates arguments
      {"2rate+1", 2, "rate"},           // a name behind a number
      {"é𝑥_b/2", 1, "é𝑥_b"},            // letters beyond ASCII
  };
  for (const auto& [line, index, selected] : cases) {
    area.SetText(line);
    QTextCursor clicked = area.textCursor();
    clicked.setPosition(index);
    const QPoint place = area.cursorRect(clicked).center() + QPoint(2, 0);
    QTest::mouseDClick(area.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(area.textCursor().selectedText().toStdString(), selected) << line << " at " << index;
  }
}

TEST_F(TextAreaTest, NeverScrollsSideways) {
  area.SetText("averyverylongnamethatisunknown_ and words");
  area.moveCursor(QTextCursor::End);
  for (int width = 60; width < 200; ++width) {
    area.resize(width, 100);
    QTest::keyClick(&area, '1');
    EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0) << width;
  }
}

TEST_F(TextAreaTest, HandlesVeryLongLines) {
  area.SetText("short\n" + std::string(1'000'000, '1'));
  QCoreApplication::processEvents();
  EXPECT_EQ(area.Text().size(), 1'000'006);
  area.SetText("short");
  EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
  area.insertPlainText(QString(500'000, u'1'));
  area.undo();
  EXPECT_EQ(area.Text(), "short");
}

// Shaping a whole run at once would take minutes.
TEST_F(TextAreaTest, HandlesLongRunsOfCombiningMarks) {
  for (const char* mark : {"\u0301", "\u05B8", "\u0941", "\U000E0100"}) {
    area.SetText("a" + ToQString(mark).repeated(250'000).toStdString());
    area.insertPlainText("1");
    QCoreApplication::processEvents();
    area.SetText("مَرْحَبًا שָׁלוֹם नमस्ते สวัสดี e\u0301");
    EXPECT_TRUE(area.document()->firstBlock().layout()->formats().isEmpty()) << "ordinary text is shaped as usual";
  }
}

}  // namespace
}  // namespace sumlet
