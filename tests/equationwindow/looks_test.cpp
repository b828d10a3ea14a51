#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include "equationwindow/equation_fixture.h"
#include "equationwindow/line_roles.h"

namespace sumlet {
namespace {

TEST(LineRoles, ByTheFirstCharacters) {
  const struct {
    const char* text;
    std::optional<Int32> errorLine;
    const char* roles;  // a letter a line: o rdinary, c omment, e rror
  } rows[] = {
      {"", {}, ""},
      {"x=1\n// note\n  # note", {}, "oco"},
      {"'a\n#b\n/c\n//\n\n", {}, "ccoco"},
      {"1\n# foo", 1, "oc"},
      {"1\nfoo\n", 7, "oo"},
      {"a\r\nb\rc", 2, "ooeo"},  // a CR LF is two line ends
  };
  for (const auto& row : rows) {
    String roles;
    for (const LineRole role : LineRoles(row.text, row.errorLine)) roles += "oce"[static_cast<int>(role)];
    EXPECT_EQ(roles, row.roles) << row.text;
  }
}

class Looks : public EquationFixture {
 protected:
  // For each line its coloured beginning and the colour.
  [[nodiscard]] String Colors() const {
    String text;
    for (QTextBlock block = window->textInput().document()->begin(); block.isValid(); block = block.next()) {
      for (const auto& range : block.layout()->formats()) {
        const bool isGrey = range.format.foreground().color() == QColor(0x7F, 0x7F, 0x7F);
        text += (isGrey ? "grey " : "red ") + std::to_string(range.start) + "+" + std::to_string(range.length);
      }
      text += ";";
    }
    return text;
  }
  void TypeAt(int position, const char* keys) {
    QTextCursor caret = window->textInput().textCursor();
    caret.setPosition(position);
    window->textInput().setTextCursor(caret);
    QTest::keyClicks(&window->textInput(), keys);
  }
};

TEST_F(Looks, ColorsFollowTheCalculationAndTheTyping) {
  Fill("# 𝜋\nfoo\n# b");
  EXPECT_EQ(Colors(), "grey 0+4;red 0+3;grey 0+3;");
  TypeAt(6, "xy");
  EXPECT_EQ(Colors(), "grey 0+4;red 0+5;grey 0+3;") << "typed into a line";
  QTest::keyClick(&window->textInput(), Qt::Key_Return);
  EXPECT_EQ(Colors(), "grey 0+4;red 0+3;red 0+2;grey 0+3;") << "broken in two";
  for (int i = 0; i < 2; ++i) QTest::keyClick(&window->textInput(), Qt::Key_Backspace);
  TypeAt(13, "z");
  EXPECT_EQ(window->textInput().Text(), "# 𝜋\nfxoo\n# bz");
  EXPECT_TRUE(Colors().ends_with("grey 0+3;")) << "at the very end";
  clock.Advance(250);
  EXPECT_EQ(Colors(), "grey 0+4;red 0+4;grey 0+4;");
  EXPECT_EQ(window->tmrCalculate().Mode(), TimerMode::Off) << "colouring is no change";
  EXPECT_EQ(window->textInput().textCursor().position(), 14);
  window->textInput().undo();
  EXPECT_EQ(window->textInput().Text(), "# 𝜋\nfxoo\n# b");
  Fill("1\n2");
  EXPECT_EQ(Colors(), ";;");
}

TEST_F(Looks, AOneLineResultIsNeitherCutNorScrolled) {
  Fill("x=2\nx*21");
  TextArea& output = window->textOutput();
  for (const Int32 size : {11, 13, 24, 96}) {
    for (const Int32 height : {64, 234, 900}) {
      window->SetHeight(height);
      window->ApplyTextSize(size);
      QCoreApplication::processEvents();
      const int line = output.fontMetrics().height();
      EXPECT_GE(window->textInput().height(), line) << size << " " << height;
      if (2 * line + 10 > height) continue;  // no room for a line of each
      EXPECT_EQ(output.verticalScrollBar()->maximum(), 0) << size << " " << height;
      EXPECT_GE(output.viewport()->height(), line) << size << " " << height;
    }
  }
  window->ApplyTextSize(13);
  for (const bool isLong : {true, false}) {
    Fill(isLong ? "foo" + String(300, 'x') : "1");
    EXPECT_EQ(output.LineNumAtCharPos(Len(Result())) > 5, isLong);
    EXPECT_EQ(output.verticalScrollBarPolicy() == Qt::ScrollBarAsNeeded, isLong);
    EXPECT_EQ(output.height() > 100, isLong);
  }
}

// At such a size neither area has room for a whole line.
TEST_F(Looks, TextLargerThanItsAreaStaysInSight) {
  window->SetHeight(64);
  window->ApplyTextSize(96);
  Fill("(6");
  TypeAt(2, "7");
  QCoreApplication::processEvents();
  EXPECT_TRUE(window->textInput().rect().intersects(window->textInput().cursorRect()));
  EXPECT_EQ(window->textInput().verticalScrollBar()->maximum(), 0);
  window->SetHeight(234);
  Fill("(6*7");
  QCoreApplication::processEvents();
  EXPECT_EQ(window->textOutput().verticalScrollBar()->value(), 0);
}

}  // namespace
}  // namespace sumlet
