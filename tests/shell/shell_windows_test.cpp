#include <QScrollBar>
#include <initializer_list>
#include <tuple>

#include "equationwindow/win_sumlet.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/application_icon.h"
#include "shell/win_about.h"
#include "shell/win_help.h"
#include "shell/win_preferences.h"

namespace sumlet {
namespace {

class ShellWindows : public WindowFixture {
 protected:
  ~ShellWindows() override { Preferences::TextSize = Preferences::defaultTextSize; }
};

TEST_F(ShellWindows, OpenOnceAndCloseOnEscape) {
  for (int i = 0; i < 2; ++i) {
    winHelp::Instance();
    winPreferences::Instance();
    winAbout::Instance();
  }
  EXPECT_EQ(WindowCount(), 3);
  for (Int32 left = 2; left >= 0; --left) {
    QTest::keyClick(&WindowAt(0), Qt::Key_Escape);
    EXPECT_EQ(WindowCount(), left);
  }
}

TEST_F(ShellWindows, PreferencesShowAndChangeTheSettings) {
  const std::tuple<Int32, int, int> rows[] = {
      // the text size, its row in the list, and the number of rows
      {13, 1, 10},
      {-2147483648, 0, 12},  // above the sizes that are offered and a separator
  };
  for (const auto& [size, row, count] : rows) {
    const bool remembered = size == 13;
    Preferences::TextSize = size;
    Preferences::RememberEquations = remembered;
    const QComboBox& sizes = winPreferences::Instance().popSize();
    EXPECT_EQ(sizes.currentText().toInt(), size);
    EXPECT_EQ(sizes.currentIndex(), row) << size;
    EXPECT_EQ(sizes.count(), count) << size;
    EXPECT_GE(sizes.maxVisibleItems(), count) << "no scroll bar";
    QCheckBox& box = winPreferences::Instance().chkRestoreEquations();
    EXPECT_EQ(box.isChecked(), remembered);
    EXPECT_EQ(Preferences::TextSize, size) << "opening the window changes nothing";
    box.click();
    EXPECT_EQ(Preferences::RememberEquations, !remembered);
    winPreferences::Instance().Close();
  }
  const winSumlet *behind = new winSumlet, *front = new winSumlet;
  winPreferences::Instance().popSize().setCurrentText("72");
  for (const winSumlet* equation : {behind, front}) EXPECT_EQ(equation->textInput().font().pointSize(), 72);
  winPreferences::ChooseTextSize(24);
  for (const winSumlet* equation : {behind, front}) EXPECT_EQ(equation->textOutput().font().pointSize(), 24);
  EXPECT_EQ(winPreferences::Instance().popSize().currentText(), "24");
  const std::tuple<Int32, Int32, Int32> steps[] = {
      // a size, the next smaller one and the next larger one
      {11, 11, 13},    // the smallest that is offered
      {15, 13, 16},    // between two that are offered
      {200, 96, 200},  // larger than the largest
  };
  for (const auto& [size, smaller, larger] : steps) {
    EXPECT_EQ(winPreferences::TextSizeAfter(size, -1), smaller) << size;
    EXPECT_EQ(winPreferences::TextSizeAfter(size, 1), larger) << size;
  }
}

TEST_F(ShellWindows, HelpCardShowsNoSelection) {
  winHelp& help = winHelp::Instance();
  Listbox& list = help.list();
  const QImage before = list.viewport()->grab().toImage();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(3, 1)).center());
  EXPECT_EQ(list.ListIndex(), 3);
  EXPECT_EQ(list.viewport()->grab().toImage(), before) << "no highlight";
  help.SetHeight(200);
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_GT(list.verticalScrollBar()->value(), 0) << "a key scrolls at once";
}

TEST_F(ShellWindows, TextsFitInALargeFont) {
  const QFont before = QApplication::font();
  QApplication::setFont(QFont(before.family(), 30));
  for (const QWidget* control : std::initializer_list<const QWidget*>{
           &winAbout::Instance().stApp(), &winPreferences::Instance().chkRestoreEquations()}) {
    EXPECT_LE(control->sizeHint().width(), control->width());
    EXPECT_LE(control->fontMetrics().height(), control->height());
  }
  EXPECT_EQ(winPreferences::Instance().popSize().font(), winPreferences::Instance().chkRestoreEquations().font());
  const Listbox& card = winHelp::Instance().list();
  QCoreApplication::processEvents();
  EXPECT_LE(static_cast<const QAbstractItemView&>(card).sizeHintForColumn(1), card.columnWidth(1));
  QApplication::setFont(before);
  EXPECT_EQ(ApplicationIcon().pixmap(256).toImage().size(), QSize(256, 256));
}

}  // namespace
}  // namespace sumlet
