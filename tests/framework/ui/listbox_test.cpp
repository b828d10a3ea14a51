#include "framework/ui/listbox.h"

#include "framework/fault.h"
#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

using namespace std::string_literals;

void Click(Listbox& list, int y, Qt::KeyboardModifiers keys) {
  QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, QPoint(150, y));
}

void DoubleClick(Listbox& list, int y, Qt::MouseButton button) {
  QTest::mouseDClick(list.viewport(), button, {}, QPoint(50, y));
}

TEST(Listbox, SelectsOneRow) {
  const struct {
    void (*step)(Listbox&);
    bool required;
    const char* log;
  } rows[] = {
      // every row begins with row 2 of 5 selected
      {[](Listbox& l) { Click(l, 30, {}); }, true, "Change 0;"},
      {[](Listbox& l) { Click(l, 350, {}); }, true, ""},  // below the rows
      {[](Listbox& l) { Click(l, 150, Qt::ControlModifier); }, true, ""},
      {[](Listbox& l) { Click(l, 150, Qt::ControlModifier); }, false, "Change -1;"},
      {[](Listbox& l) { QTest::keyClick(&l, Qt::Key_End); }, true, "Change 4;"},
      {[](Listbox& l) { DoubleClick(l, 30, Qt::LeftButton); }, true, "Change 0;DoubleClick 0;"},
      {[](Listbox& l) { DoubleClick(l, 150, Qt::RightButton); }, true, ""},
      {[](Listbox& l) { DoubleClick(l, 350, Qt::LeftButton); }, true, ""},
      {[](Listbox& l) { l.SetListIndex(-1); }, true, "Change -1;"},
      {[](Listbox& l) { l.DeleteAllRows(); }, true, "Change -1;"},
  };
  for (const auto& row : rows) {
    Listbox list(nullptr);
    list.resize(300, 400);
    list.SetDefaultRowHeight(60);
    for (Int32 i = 0; i < 5; ++i) list.AddRow("name", "text");
    list.show();
    QCoreApplication::processEvents();
    list.RequiresSelection = row.required;
    list.SetListIndex(2);
    std::string log;
    list.Change = [&log](Listbox& sender) { log += "Change " + std::to_string(sender.ListIndex()) + ";"; };
    list.DoubleClick = [&log](Listbox& sender) { log += "DoubleClick " + std::to_string(sender.ListIndex()) + ";"; };
    row.step(list);
    EXPECT_EQ(log, row.log) << &row - rows;
  }
}

// A screenful of texts of a megabyte, and many rows: the time limit of the test run would end what looks at all of it.
TEST(Listbox, BearsAnyTextAndManyRows) {
  Listbox list(nullptr);
  const String odd = "a\0\xFF\n\uFEFF😀"s;
  list.AddRow(odd, "");
  list.SetCell(0, 1, odd);
  EXPECT_EQ(list.Cell(0, 0) + list.Cell(0, 1), odd + odd);
  EXPECT_THROW(list.SetListIndex(1), Fault);
  EXPECT_THROW(static_cast<void>(list.Cell(0, 2)), Fault);
  for (Int32 i = 0; i < 10; ++i) list.AddRow(String(1'000'000, 'i'), String(1'000'000, '\n'));
  for (Int32 i = 0; i < 100'000; ++i) list.AddRow("name", "text");
  for (int i = 0; i < 20; ++i) list.grab();
  list.SetListIndex(list.ListCount() - 1);
  EXPECT_GT(list.visualRect(list.currentIndex()).bottom(), 0) << "scrolled into sight";
}

}  // namespace
}  // namespace sumlet
