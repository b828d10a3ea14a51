#include "framework/ui/listbox.h"

#include <QHelpEvent>
#include <QToolTip>

#include "framework/fault.h"
#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

using namespace std::string_literals;

TEST(Listbox, SelectsOneRow) {
  using Keys = Qt::KeyboardModifier;
  // where it is clicked, in pixels of rows that are 60 high, whether twice; whether a selection is required
  const std::tuple<int, bool, Keys, bool, const char*> rows[] = {
      // each begins with row 2 of 5 selected
      {350, false, Qt::NoModifier, true, ""},  // below the rows
      {150, false, Qt::ControlModifier, true, ""},
      {150, false, Qt::ControlModifier, false, "Change -1;"},
      {30, true, Qt::NoModifier, true, "Change 0;DoubleClick 0;"},
      {350, true, Qt::NoModifier, true, ""},
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
    if (!twice) QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, {150, y});
    if (twice) QTest::mouseDClick(list.viewport(), Qt::LeftButton, keys, {150, y});
    EXPECT_EQ(log, expected) << y;
    list.DeleteAllRows();
    EXPECT_EQ(list.ListIndex(), -1);
  }
}

// A screenful of texts of a megabyte, and many rows: the time limit of the test run would end what looks at all of it.
TEST(Listbox, BearsAnyTextAndManyRows) {
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

TEST(Listbox, ToolTipShowsTheWholeOfACutText) {
  Listbox list(nullptr);
  list.SetFirstColumnWidth(60);
  list.resize(200, 100);
  list.AddRow("short", "a text that is far too long for its column");
  list.show();
  for (const Int32 column : {0, 1}) {
    const QPoint where = list.visualRect(list.model()->index(0, column)).center();
    QHelpEvent hovers(QEvent::ToolTip, where, list.viewport()->mapToGlobal(where));
    QCoreApplication::sendEvent(list.viewport(), &hovers);
    EXPECT_EQ(QToolTip::isVisible(), column == 1);
  }
}

}  // namespace
}  // namespace sumlet
