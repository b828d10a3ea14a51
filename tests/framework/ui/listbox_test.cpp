#include "framework/ui/listbox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QTest>

#include "framework/fault.h"
#include "framework/ui/push_button.h"

namespace sumlet {
namespace {

using namespace std::string_literals;

struct Fixture {
  explicit Fixture(Int32 rows = 5) {
    list.resize(300, 400);
    list.SetFirstColumnWidth(100);
    list.SetDefaultRowHeight(60);
    list.Change = [this](Listbox& sender) { log += "Change " + std::to_string(sender.ListIndex()) + ";"; };
    list.DoubleClick = [this](Listbox& sender) { log += "DoubleClick " + std::to_string(sender.ListIndex()) + ";"; };
    for (Int32 i = 0; i < rows; ++i) list.AddRow("name", "text");
    list.show();
    QCoreApplication::processEvents();
  }
  std::string log;
  Listbox list{nullptr};
};

void Click(Listbox& list, int y, Qt::KeyboardModifiers keys = {}) {
  QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, QPoint(150, y));
}

void DoubleClick(Listbox& list, int y, Qt::MouseButton button) {
  QTest::mouseDClick(list.viewport(), button, {}, QPoint(50, y));
}

TEST(Listbox, SelectsOneRow) {
  using Step = void (*)(Listbox&);
  const struct {
    const char* name;
    Step step;
    bool required;
    const char* log;
    Int32 index;
  } rows[] = {
      // every row begins with row 2 selected
      {"click", [](Listbox& l) { Click(l, 30); }, true, "Change 0;", 0},
      {"below the rows", [](Listbox& l) { Click(l, 350); }, true, "", 2},
      {"Ctrl and click", [](Listbox& l) { Click(l, 150, Qt::ControlModifier); }, true, "", 2},
      {"Ctrl and click", [](Listbox& l) { Click(l, 150, Qt::ControlModifier); }, false, "Change -1;", -1},
      {"Home", [](Listbox& l) { QTest::keyClick(&l, Qt::Key_Home); }, true, "Change 0;", 0},
      {"End", [](Listbox& l) { QTest::keyClick(&l, Qt::Key_End); }, true, "Change 4;", 4},
      {"double click", [](Listbox& l) { DoubleClick(l, 30, Qt::LeftButton); }, true, "Change 0;DoubleClick 0;", 0},
      {"right button", [](Listbox& l) { DoubleClick(l, 150, Qt::RightButton); }, true, "", 2},
      {"below the rows", [](Listbox& l) { DoubleClick(l, 350, Qt::LeftButton); }, true, "", 2},
      {"none by program", [](Listbox& l) { l.SetListIndex(-1); }, true, "Change -1;", -1},
      {"emptied", [](Listbox& l) { l.DeleteAllRows(); }, true, "Change -1;", -1},
  };
  for (const auto& row : rows) {
    Fixture f;
    f.list.RequiresSelection = row.required;
    f.list.SetListIndex(2);
    f.log.clear();
    row.step(f.list);
    EXPECT_EQ(f.log, row.log) << row.name;
    EXPECT_EQ(f.list.ListIndex(), row.index) << row.name;
  }
}

TEST(Listbox, KeepsTextsByteForByte) {
  Fixture f(0);
  const String odd = "a\0\xFF\n\uFEFF😀"s;
  f.list.AddRow(odd, "");
  f.list.SetCell(0, 1, odd);
  EXPECT_EQ(f.list.Cell(0, 0), odd);
  EXPECT_EQ(f.list.Cell(0, 1), odd);
  EXPECT_THROW(f.list.SetListIndex(1), Fault);
  EXPECT_THROW(f.list.SetListIndex(-2), Fault);
  EXPECT_THROW(f.list.SetCell(0, 2, ""), Fault);
  EXPECT_THROW(static_cast<void>(f.list.Cell(-1, 0)), Fault);
  EXPECT_EQ(f.list.ListIndex(), -1);
}

// A screenful of texts of a megabyte, and many rows: the time limit of the test run would end what looks at all of it.
TEST(Listbox, BearsLongTextsAndManyRows) {
  Fixture f(0);
  for (Int32 i = 0; i < 10; ++i) f.list.AddRow(String(1'000'000, 'i'), String(1'000'000, '\n'));
  for (Int32 i = 0; i < 100'000; ++i) f.list.AddRow("name", "text");
  for (int i = 0; i < 20; ++i) f.list.grab();
  f.list.SetListIndex(f.list.ListCount() - 1);
  EXPECT_GT(f.list.visualRect(f.list.currentIndex()).bottom(), 0) << "scrolled into sight";
}

TEST(Listbox, DrawsCells) {
  Fixture f(3);
  f.list.SetListIndex(1);
  f.list.CellBackgroundPaint = [](CellGraphics& g, Int32 row, Int32 column) {
    if (row == 0) g.painter.fillRect(-500, -500, 1000, 500 + g.Height, column == 0 ? Qt::red : Qt::green);
    return row == 2;
  };
  f.list.CellTextPaint = [](CellGraphics&, Int32, Int32) { return true; };
  const QImage picture = f.list.viewport()->grab().toImage();
  EXPECT_EQ(picture.pixelColor(99, 59), QColor(Qt::red));
  EXPECT_EQ(picture.pixelColor(100, 0), QColor(Qt::green)) << "a cell ends where the next begins";
  EXPECT_EQ(picture.pixelColor(100, 60), QColor(0x2A, 0x6F, 0xC9)) << "the list's own background of the selected row";
  EXPECT_EQ(picture.pixelColor(100, 120), QColor(Qt::white));
  EXPECT_EQ(f.list.columnWidth(0) + f.list.columnWidth(1), f.list.viewport()->width());
}

// Too large for the button, the caption is made smaller: nothing of it comes near the frame.
TEST(PushButton, NeverCutsItsCaption) {
  PushButton button("Rename gH", nullptr);
  button.SetTextSize(40);
  button.resize(61, 18);
  const QImage drawn = button.grab().toImage();
  button.setText("");
  const QImage blank = button.grab().toImage();
  EXPECT_NE(drawn, blank);
  for (const QRect& edge : {QRect(0, 0, 61, 2), QRect(0, 16, 61, 2), QRect(0, 0, 2, 18), QRect(59, 0, 2, 18)})
    EXPECT_EQ(drawn.copy(edge), blank.copy(edge));
}

}  // namespace
}  // namespace sumlet
