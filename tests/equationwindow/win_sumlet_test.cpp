#include "equationwindow/win_sumlet.h"

#include <QClipboard>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "equationwindow/area_layout.h"
#include "equationwindow/line_colors.h"
#include "equationwindow/value_text.h"
#include "framework/desktop.h"
#include "framework/ui/window_fixture.h"
#include "templates/templates_manager.h"
#include "templates/win_save.h"

namespace sumlet {
namespace {

class WinSumlet : public WindowFixture {
 protected:
  WinSumlet() { QCoreApplication::processEvents(); }
  void TypeAt(int position, const char* keys) {
    QTextCursor caret = input.textCursor();
    caret.setPosition(position);
    input.setTextCursor(caret);
    QTest::keyClicks(&input, keys);
    QCoreApplication::processEvents();
  }
  // For each line the colour of its beginning, and how many units of UTF-16 have it.
  [[nodiscard]] String Colors() const {
    String text;
    for (QTextBlock block = input.document()->begin(); block.isValid(); block = block.next()) {
      for (const auto& range : block.layout()->formats())
        text += range.format.foreground().color().name().toStdString() + " " + std::to_string(range.length);
      text += ";";
    }
    return text;
  }

  static constexpr const char* longResult = "averyverylongvariablenamethatisunknown_";
  static void ExpectResultSeenWhole(const winSumlet& window) {
    TextArea& output = window.textOutput();
    QCoreApplication::processEvents();
    QTextCursor end(output.document());
    end.movePosition(QTextCursor::End);
    EXPECT_LT(output.viewport()->y() + output.cursorRect(end).bottom(), output.height()) << window.TextSize;
    EXPECT_FALSE(output.verticalScrollBar()->isVisible()) << window.TextSize;
  }

  int saves = 0;
  const HookGuard scheduleSave = winSumlet::ScheduleSave.Set([this] { ++saves; });
  QPointer<winSumlet> window = new winSumlet;
  TextArea& input = window->textInput();
  TextArea& output = window->textOutput();
};

TEST_F(WinSumlet, CalculatesOnceTypingHasStopped) {
  window->SetEquation("", "(1");
  EXPECT_EQ(window->tmrCalculate().Mode(), TimerMode::Off) << "a text set by program arms no timer";
  EXPECT_EQ(saves, 0);
  input.selectAll();
  output.SetText("not calculated anew");
  for (const char key : std::string("1+2+3+4+56")) {
    clock.Advance(249);
    QTest::keyClick(&input, key);
  }
  EXPECT_EQ(saves, 10);
  clock.Advance(249);
  EXPECT_EQ(output.Text(), "not calculated anew");
  clock.Advance(1);
  EXPECT_EQ(output.Text(), "66");
  QTest::keyClick(&input, Qt::Key_1);
  window->Close();
  DestroyClosed();
  clock.Advance(250);  // a closed window does not calculate
}

TEST(LayOutAreas, GiveTheResultWhatItNeedsAndTheEquationALine) {
  using Layout = std::tuple<int, int, int, int, bool>;
  // the height of the window, of a line, the lines of the result, and the layout
  const std::tuple<Int32, Int32, Int32, Layout> rows[] = {
      {234, 16, 1, {-1, 215, 216, 19, false}},   // a short result
      {234, 16, 0, {-1, 215, 216, 19, false}},   // none
      {234, 16, 3, {-1, 183, 184, 51, true}},    // three lines
      {64, 16, 9, {-1, 16, 17, 47, true}},       // more lines than fit
      {64, 100, 1, {-1, 100, 101, -37, false}},  // text larger than the window
  };
  for (const auto& [height, line, lines, layout] : rows) {
    const AreaLayout a = LayOutAreas(height, line, lines);
    EXPECT_EQ(Layout(a.inputTop, a.inputHeight, a.outputTop, a.outputHeight, a.outputScrolls), layout) << lines;
  }
}

TEST(LineColors, DependOnTheFirstCharactersAndTheError) {
  const auto grey = CommentColor;
  const auto red = ErrorColor;
  const std::tuple<const char*, std::optional<Int32>, std::vector<QColor>> rows[] = {
      {"x\n// c\n  # c", {}, {QColor(), grey, QColor()}},
      {"1\r\n'c\n", 1, {QColor(), red, grey}},
      {"# c\nfoo", 0, {grey, QColor()}},
      {"foo", 7, {QColor()}},
      {"", 0, {}},
  };
  for (const auto& [text, errorLine, colors] : rows) EXPECT_EQ(LineColors(text, errorLine), colors) << text;
}

using FamilyAndHinting = std::tuple<String, QFont::HintingPreference>;
class WinSumletFonts : public WinSumlet, public testing::WithParamInterface<FamilyAndHinting> {};

TEST_P(WinSumletFonts, ResultThatFitsIsSeenWhole) {
  const auto& [family, hinting] = GetParam();
  QFont font(QString::fromStdString(family));
  font.setHintingPreference(hinting);
  if (QFontInfo(font).family().toStdString() != family) GTEST_SKIP() << "the font is not installed";
  const auto restore = qScopeGuard([before = QApplication::font()] { QApplication::setFont(before); });
  window->SetEquation("", longResult);
  QApplication::setFont(font);  // as the desktop does while the window is open
  QCoreApplication::processEvents();
  ExpectResultSeenWhole(*window);
  window->setUpdatesEnabled(false);  // painting takes most of the time
  for (Int32 size = 11; size <= 96; ++size) {
    window->SetWidth(12 * size);
    window->SetHeight(12 * size);
    window->ApplyTextSize(size);
    for (const char* equation : {"6*7", longResult}) {
      window->SetEquation("", equation);
      ExpectResultSeenWhole(*window);
      EXPECT_EQ(output.verticalScrollBarPolicy() == Qt::ScrollBarAsNeeded, equation == longResult);
    }
    EXPECT_GT(output.height(), 3 * size);
  }
}

INSTANTIATE_TEST_SUITE_P(All, WinSumletFonts,
                         testing::Combine(testing::Values("DejaVu Sans", "Noto Sans", "Liberation Sans", "Cantarell"),
                                          testing::Values(QFont::PreferFullHinting, QFont::PreferNoHinting)));

TEST_F(WinSumlet, CaretStaysVisible) {
  const auto caretIsVisible = [this] { return input.viewport()->rect().contains(input.cursorRect()); };
  window->SetEquation("", "1\n2\n3\n4\n5\n6\n7\n8\n9\n");
  TypeAt(18, "*/");
  const Int32 before = output.height();
  clock.Advance(250);
  EXPECT_GT(output.height(), before);
  EXPECT_TRUE(caretIsVisible()) << "above a result of more lines";
  window->SetHeight(100);
  EXPECT_TRUE(caretIsVisible()) << "in a smaller window";
  window->ApplyTextSize(36);
  EXPECT_TRUE(caretIsVisible()) << "in larger text";
  window->ApplyTextSize(96);  // neither area has room for a whole line
  EXPECT_TRUE(input.rect().intersects(input.cursorRect()));
}

TEST_F(WinSumlet, ColorsFollowTheCalculationAndTheTyping) {
  window->SetEquation("", "# 𝜋\nfoo\n# b");
  EXPECT_EQ(Colors(), "#7f7f7f 4;#ff0000 3;#7f7f7f 3;");
  TypeAt(6, "xy");
  EXPECT_EQ(Colors(), "#7f7f7f 4;#ff0000 5;#7f7f7f 3;") << "typed into a line";
  QTest::keyClick(&input, Qt::Key_Return);
  EXPECT_EQ(Colors(), "#7f7f7f 4;#ff0000 3;#ff0000 2;#7f7f7f 3;") << "broken in two";
  for (int i = 0; i < 2; ++i) QTest::keyClick(&input, Qt::Key_Backspace);
  TypeAt(13, "z");
  EXPECT_EQ(input.Text(), "# 𝜋\nfxoo\n# bz");
  EXPECT_TRUE(Colors().ends_with("#7f7f7f 3;")) << "at the very end";
  clock.Advance(250);
  EXPECT_EQ(Colors(), "#7f7f7f 4;#ff0000 4;#7f7f7f 4;");
  EXPECT_EQ(window->tmrCalculate().Mode(), TimerMode::Off) << "colouring is no change";
  input.undo();
  EXPECT_EQ(input.Text(), "# 𝜋\nfxoo\n# b");
  window->SetEquation("", "1\n2");
  EXPECT_EQ(Colors(), ";;");
}

// In an area 120 pixels wide, each character 10 wide. Text at the right edge has a negative width.
TEST(LineValues, ArePlacedAtTheEdgeOrCutOrLeftOut) {
  const std::tuple<const char*, double, const char*> rows[] = {
      {"1234567890", 0, "1234567890 at 20"},
      {"1234567890", 1, "12345678… at 30"},
      {"1234", 70, "12… at 90"},
      {"1234", 71, ""},
      {"5", 91, ""},
      {"1234567890", -20, "1234567… at 0"},
  };
  for (const auto& [value, textWidth, shown] : rows) {
    const ValueRoom room{std::max(textWidth, 0.0), 120 + std::min(textWidth, 0.0), textWidth < 0};
    const PlacedValue placed = PlaceValue(value, room, [](QChar) { return 10.0; });
    const QString text = placed.text.isEmpty() ? "" : QStringLiteral("%1 at %2").arg(placed.text).arg(placed.left);
    EXPECT_EQ(text.toStdString(), shown) << value << " beside " << textWidth;
  }
}

TEST(LineValues, AreCopiedInAColumn) {
  const String longLine = "1" + String(100, ' ') + "+1";
  MathClass math("# the longest of all\n面積=3\n\t2(3+4)\n" + longLine + "\n\nfoo\n7");
  EXPECT_EQ(TextWithValues(math.equationText, LineValues(math), 1, 9),
            "面積=3          → 3\n\t2(3+4)  → 14\n" + longLine + "  → 2\n\nfoo\n7");
}

TEST_F(WinSumlet, LineValuesMoveAndHideWithTheirLines) {
  const auto shown = [this] {
    String text;
    for (const auto& [line, value, place, baseline] : window->valueDisplay()->ShownBetween(0, input.height()))
      text += Str(line) + ":" + value.toStdString() + " ";
    return text;
  };
  window->ShowLineValues(true);
  window->SetEquation("", "# c\n40+2\n\n3\nfoo\n5");
  EXPECT_EQ(shown(), "1:42 3:3 ");
  TypeAt(8, "\r");
  EXPECT_EQ(shown(), "1:42 4:3 ") << "a line more between them";
  TypeAt(4, "\r");
  EXPECT_EQ(shown(), "2:42 5:3 ") << "a line more above both";
  TypeAt(5, "1");
  EXPECT_EQ(shown(), "5:3 ") << "a changed line has no value yet";
  QTest::keyClick(&input, Qt::Key_Delete);
  clock.Advance(250);
  EXPECT_EQ(shown(), "2:12 5:3 ");
  window->SetEquation("", "1+1\n5");
  QTest::mouseClick(input.viewport(), Qt::LeftButton, {}, {input.viewport()->width() - 3, 5});
  EXPECT_EQ(ClipboardText(), "2");
  EXPECT_EQ(input.accessibleDescription(), "Copied 2");
  clock.Advance(2000);
  EXPECT_EQ(input.accessibleDescription(), "5") << "the result again";
}

TEST_F(WinSumlet, ACompositionKeepsItsMarkAndTakesTheColorOfItsLine) {
  window->SetEquation("", "# ab\n1");
  TypeAt(3, "c");
  QTextCharFormat underlined;
  underlined.setFontUnderline(true);
  const QInputMethodEvent::Attribute mark(QInputMethodEvent::TextFormat, 0, 2, underlined);
  QInputMethodEvent composed("xy", {mark});
  QCoreApplication::sendEvent(&input, &composed);
  clock.Advance(250);
  const auto formats = input.document()->firstBlock().layout()->formats();
  ASSERT_FALSE(formats.isEmpty());
  EXPECT_EQ(formats.back().start, 4);
  EXPECT_TRUE(formats.back().format.fontUnderline());
  QInputMethodEvent committed;
  committed.setCommitString("z");
  QCoreApplication::sendEvent(&input, &committed);
  EXPECT_EQ(input.Text(), "# aczb\n1");
  EXPECT_EQ(Colors(), "#7f7f7f 6;;");
}

TEST_F(WinSumlet, SavesAsTemplateItsTextAtTheTimeOfSaving) {
  window->_FileSaveAsTemplate_Action();
  QLineEdit& name = Front<winSave>()->textName();
  EXPECT_EQ(name.text(), "Untitled Template");
  input.SetText("6*7");
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_EQ(TemplatesManager::EquationText[TemplatesManager::EquationText.Ubound()], "6*7");
}

}  // namespace
}  // namespace sumlet
