#include "framework/ui/listbox.h"

#include "framework/fault.h"
#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

using namespace std::string_literals;

TEST(Listbox, SelectsOneRow) {
  using Keys = Qt::KeyboardModifier;
  // Row 2 of 5, each 60 pixels high, is selected before each click.
  const std::tuple<int, bool, Keys, bool, const char*> rows[] = {
      // the place, whether the click is double, whether a selection is required, and the events
      {150, false, Qt::ControlModifier, true, ""},
      {150, false, Qt::ControlModifier, false, "Change -1;"},
      {30, true, Qt::NoModifier, true, "Change 0;DoubleClick 0;"},
      {350, true, Qt::NoModifier, true, ""},  // below the rows
  };
  for (const auto& [y, twice, keys, required, expected] : rows) {
    Listbox list(nullptr);
    list.resize(300, 400);
    list.SetDefaultRowHeight(60);
    for (Int32 i = 0; i < 5; ++i) list.AddRow("name", "text");
    list.show();
    QCoreApplication::processEvents();
    list.RequiresSelection = required;
    list.SetListIndex(2);
    std::string log;
    list.Change = [&log](Listbox& sender) { log += "Change " + std::to_string(sender.ListIndex()) + ";"; };
    list.DoubleClick = [&log](Listbox& sender) { log += "DoubleClick " + std::to_string(sender.ListIndex()) + ";"; };
    if (twice)
      QTest::mouseDClick(list.viewport(), Qt::LeftButton, keys, {150, y});
    else
      QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, {150, y});
    EXPECT_EQ(log, expected) << y;
    list.DeleteAllRows();
    EXPECT_EQ(list.ListIndex(), -1);
  }
}

// A list that reads all of this text would exceed the time limit of the test run.
TEST(Listbox, HandlesAnyTextAndManyRows) {
  Listbox list(nullptr);
  list.AddRow("a\0\xFF\n\uFEFF😀"s);
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
