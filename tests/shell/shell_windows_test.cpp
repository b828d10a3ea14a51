#include <QAbstractItemView>
#include <QScrollBar>
#include <QWheelEvent>

#include "equationwindow/win_sumlet.h"
#include "framework/ui/qt_text.h"
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
  // The rows of the size list, the current one in brackets.
  static String Sizes() {
    const QComboBox& sizes = winPreferences::Instance().popSize();
    String rows;
    for (int i = 0; i < sizes.count(); ++i) {
      const String row =
          sizes.itemData(i, Qt::AccessibleDescriptionRole) == "separator" ? "-" : FromQString(sizes.itemText(i));
      rows += (i == sizes.currentIndex() ? "[" + row + "]" : row) + " ";
    }
    return rows;
  }
  static void Wheel(QWidget& control, int notches) {
    const QPointF middle = QRectF(control.rect()).center();
    QWheelEvent event(middle, control.mapToGlobal(middle), {}, {0, -120 * notches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&control, &event);
  }
  template <class WindowClass>
  static void ExpectOneAtATime(bool resizeable) {
    WindowClass& first = WindowClass::Instance();
    EXPECT_EQ(&WindowClass::Instance(), &first);
    const Int32 width = first.Width();
    first.SetWidth(width + 100);
    EXPECT_EQ(first.Width() > width, resizeable);
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &first, Qt::Key_Escape);
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_NE(&WindowClass::Instance(), &first) << "closed, though not yet destroyed";
    WindowClass::Instance().Close();
  }
};

TEST_F(ShellWindows, OneAtATimeUntilEscape) {
  ExpectOneAtATime<winHelp>(true);
  ExpectOneAtATime<winPreferences>(false);
  ExpectOneAtATime<winAbout>(false);
}

TEST_F(ShellWindows, TheSettingsInForceAreShown) {
  const std::pair<Int32, const char*> rows[] = {{13, "11 [13] 16 20 24 36 48 64 72 96 "},
                                                {-2147483648, "[-2147483648] - 11 13 16 20 24 36 48 64 72 96 "}};
  for (const auto& [size, list] : rows) {
    const bool remembered = size == 13;
    Preferences::TextSize = size;
    Preferences::RememberEquations = remembered;
    EXPECT_EQ(Sizes(), list);
    QCheckBox& box = winPreferences::Instance().chkRestoreEquations();
    EXPECT_EQ(box.isChecked(), remembered);
    EXPECT_EQ(Preferences::TextSize, size) << "opening the window changes nothing";
    EXPECT_EQ(Preferences::RememberEquations, remembered);
    box.click();
    EXPECT_EQ(Preferences::RememberEquations, !remembered);
    winPreferences::Instance().Close();
  }
}

TEST_F(ShellWindows, TheSeparatorCannotBeChosen) {
  Preferences::TextSize = 15;
  QComboBox& sizes = winPreferences::Instance().popSize();
  for (const bool byKey : {true, false}) {
    byKey ? QTest::keyClick(&sizes, Qt::Key_Down) : Wheel(sizes, 1);
    EXPECT_EQ(Preferences::TextSize, 11);
    byKey ? QTest::keyClick(&sizes, Qt::Key_Up) : Wheel(sizes, -1);
    EXPECT_EQ(Preferences::TextSize, 15);
  }
  const QAbstractItemView& popup = *sizes.view();
  for (const auto& [row, size] : {std::pair(1, 15), std::pair(2, 11)}) {
    sizes.showPopup();
    const QPoint middle = popup.visualRect(popup.model()->index(row, 0)).center();
    QTest::mouseMove(popup.viewport(), middle);
    QTest::mouseClick(popup.viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(Preferences::TextSize, size) << "a click on row " << row;
    sizes.hidePopup();
  }
}

TEST_F(ShellWindows, ASizeGoesToEveryEquation) {
  const winSumlet* behind = new winSumlet;
  QComboBox& sizes = winPreferences::Instance().popSize();
  winHelp::Instance();
  const winSumlet* front = new winSumlet;
  sizes.setCurrentIndex(sizes.findText("72"));
  for (const winSumlet* equation : {behind, front}) {
    EXPECT_EQ(equation->TextSize, 72);
    EXPECT_EQ(equation->textInput().font().pointSize(), 72);
  }
}

TEST_F(ShellWindows, TheCardStaysBlackOnWhite) {
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

TEST_F(ShellWindows, TextsFitWithALargeFont) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSize(30);
  QApplication::setFont(large);
  QCoreApplication::setApplicationVersion("1.2.3");
  const winAbout& about = winAbout::Instance();
  EXPECT_EQ(about.stVersion().text(), "Version 1.2.3");
  for (const QWidget* control : std::initializer_list<const QWidget*>{
           &about.stApp(), &about.stVersion(), &winPreferences::Instance().chkRestoreEquations()}) {
    EXPECT_LE(control->sizeHint().width(), control->width());
    EXPECT_LE(control->fontMetrics().height(), control->height());
  }
  QApplication::setFont(before);
  for (const int size : {16, 256}) EXPECT_EQ(ApplicationIcon().pixmap(size).toImage().size(), QSize(size, size));
}

}  // namespace
}  // namespace sumlet
