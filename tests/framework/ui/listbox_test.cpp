#include "framework/ui/listbox.h"

#include "framework/fault.h"

#include <string>
#include <utility>
#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

using namespace std::string_literals;

TEST(Listbox, SelectsOneRow) {
  Listbox list(nullptr);
  list.resize(300, 400);
  list.SetDefaultRowHeight(60);
  for (Int32 i = 0; i < 5; ++i) list.AddRow("name", "text");
  list.show();
  QCoreApplication::processEvents();
  std::string log;
  list.Change = [&log](Listbox& sender) { log += "Change " + std::to_string(sender.ListIndex()) + ";"; };
  list.DoubleClick = [&log](Listbox& sender) { log += "DoubleClick " + std::to_string(sender.ListIndex()) + ";"; };
  const QPoint firstRow(150, 30);
  const QPoint thirdRow(150, 150);
  const QPoint belowTheRows(150, 350);

  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, thirdRow);
  EXPECT_EQ(std::exchange(log, {}), "Change 2;");
  list.RequiresSelection = true;
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, thirdRow);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, belowTheRows);
  QTest::mouseDClick(list.viewport(), Qt::RightButton, {}, thirdRow);
  EXPECT_EQ(log, "") << "the row stays selected";
  list.RequiresSelection = false;
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, thirdRow);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, firstRow);
  EXPECT_EQ(log, "Change -1;Change 0;DoubleClick 0;");
  list.DeleteAllRows();
  EXPECT_EQ(list.ListIndex(), -1);
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
