#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include "equationwindow/area_layout.h"
#include "equationwindow/line_roles.h"
#include "equationwindow/win_sumlet.h"
#include "framework/ui/manual_clock.h"

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
      {"1\nfoo\n3", 1, "oeo"},
      {"1\n# foo", 1, "oc"},  // a comment stays one
      {"1\nfoo\n", 7, "oo"},
      {"a\r\nb\rc", 2, "ooeo"},  // a CR LF is two line ends
  };
  for (const auto& row : rows) {
    String roles;
    for (const LineRole role : LineRoles(row.text, row.errorLine)) roles += "oce"[static_cast<int>(role)];
    EXPECT_EQ(roles, row.roles) << row.text;
  }
}

TEST(AreaLayout, TheResultTakesWhatItNeeds) {
  const struct {
    Int32 windowHeight, lineHeight, lines;
    Int32 inputHeight, outputTop, outputHeight;
    bool scrolls;
  } rows[] = {
      {234, 16, 1, 215, 216, 19, false},  {234, 16, 0, 215, 216, 19, false}, {234, 16, 2, 199, 200, 35, true},
      {900, 16, 3, 849, 850, 51, true},   {64, 16, 9, 16, 17, 47, true},     {234, 115, 1, 115, 116, 118, false},
      {64, 115, 1, 115, 116, -52, false}, {234, 19, 1, 212, 213, 22, false},
  };
  for (const auto& row : rows) {
    const AreaLayout layout = LayOutAreas(row.windowHeight, row.lineHeight, row.lines);
    EXPECT_EQ(layout.inputTop, -1);
    EXPECT_EQ(layout.inputHeight, row.inputHeight) << row.windowHeight << " " << row.lineHeight << " " << row.lines;
    EXPECT_EQ(layout.outputTop, row.outputTop) << row.windowHeight << " " << row.lineHeight << " " << row.lines;
    EXPECT_EQ(layout.outputHeight, row.outputHeight) << row.windowHeight << " " << row.lineHeight << " " << row.lines;
    EXPECT_EQ(layout.outputScrolls, row.scrolls) << row.lines;
  }
}

class Looks : public testing::Test {
 protected:
  ~Looks() override {
    window->Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void Fill(std::string_view text) {
    window->Loading = true;
    window->textInput().SetText(text);
    window->Loading = false;
    window->Calculate();
  }
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
  void Type(const char* keys) { QTest::keyClicks(&window->textInput(), keys); }
  void CaretTo(int position) {
    QTextCursor caret = window->textInput().textCursor();
    caret.setPosition(position);
    window->textInput().setTextCursor(caret);
  }

  ManualClock clock;
  winSumlet* window = new winSumlet;
};

TEST_F(Looks, ColorsFollowTheCalculationAndTheTyping) {
  Fill("# 𝜋\nfoo\n# b");
  EXPECT_EQ(Colors(), "grey 0+4;red 0+3;grey 0+3;");
  CaretTo(6);
  Type("xy");
  EXPECT_EQ(Colors(), "grey 0+4;red 0+5;grey 0+3;") << "typed into a line";
  QTest::keyClick(&window->textInput(), Qt::Key_Return);
  EXPECT_EQ(Colors(), "grey 0+4;red 0+3;red 0+2;grey 0+3;") << "broken in two";
  QTest::keyClick(&window->textInput(), Qt::Key_Backspace);
  QTest::keyClick(&window->textInput(), Qt::Key_Backspace);
  CaretTo(13);
  Type("z");
  EXPECT_EQ(window->textInput().Text(), "# 𝜋\nfxoo\n# bz");
  EXPECT_TRUE(Colors().ends_with("grey 0+3;")) << "at the very end";
  clock.Advance(250);
  EXPECT_EQ(Colors(), "grey 0+4;red 0+4;grey 0+4;");
  Fill("1\n2");
  EXPECT_EQ(Colors(), ";;");
}

TEST_F(Looks, ColoringIsNoChange) {
  Fill("# a\nfoo");
  CaretTo(2);
  Type("b");
  clock.Advance(250);
  EXPECT_EQ(window->tmrCalculate().Mode(), TimerMode::Off);
  EXPECT_EQ(window->textInput().textCursor().position(), 3);
  window->textInput().undo();
  EXPECT_EQ(window->textInput().Text(), "# a\nfoo");
}

TEST_F(Looks, AOneLineResultIsNeitherCutNorScrolled) {
  Fill("x=2\nx*21");
  for (const Int32 size : {11, 13, 24, 96}) {
    for (const Int32 height : {64, 234, 900}) {
      window->SetHeight(height);
      window->ApplyTextSize(size);
      QCoreApplication::processEvents();
      TextArea& output = window->textOutput();
      const int line = output.fontMetrics().height();
      EXPECT_GE(window->textInput().height(), line) << size << " " << height;
      if (2 * line + 10 > height) continue;  // no room for a line of each
      EXPECT_EQ(output.verticalScrollBar()->maximum(), 0) << size << " " << height;
      EXPECT_GE(output.viewport()->height(), line) << size << " " << height;
    }
  }
}

// At such a size neither area has room for a whole line.
TEST_F(Looks, TextLargerThanItsAreaStaysInSight) {
  window->SetHeight(64);
  window->ApplyTextSize(96);
  Fill("(6");
  Type("7");
  QCoreApplication::processEvents();
  EXPECT_TRUE(window->textInput().rect().intersects(window->textInput().cursorRect()));
  EXPECT_EQ(window->textInput().verticalScrollBar()->maximum(), 0);
  window->SetHeight(234);
  Fill("(6*7");
  QCoreApplication::processEvents();
  EXPECT_EQ(window->textOutput().verticalScrollBar()->value(), 0);
}

TEST_F(Looks, ALongResultGrowsAndScrolls) {
  Fill("foo" + String(300, 'x'));
  EXPECT_GT(window->textOutput().LineNumAtCharPos(Len(window->textOutput().Text())), 5);
  EXPECT_EQ(window->textOutput().verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
  EXPECT_GT(window->textOutput().height(), 100);
  Fill("1");
  EXPECT_EQ(window->textOutput().LineNumAtCharPos(1), 1);
  EXPECT_EQ(window->textOutput().verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

}  // namespace
}  // namespace sumlet
