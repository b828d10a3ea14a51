#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "equationwindow/win_sumlet.h"
#include "framework/ui/manual_clock.h"
#include "framework/ui/qt_text.h"
#include "persistence/preferences.h"
#include "shell/application_icon.h"
#include "shell/win_about.h"
#include "shell/win_help.h"
#include "shell/win_preferences.h"

namespace sumlet {
namespace {

class ShellWindows : public testing::Test {
 protected:
  ~ShellWindows() override {
    while (WindowCount() > 0) WindowAt(0).Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Preferences::TextSize = Preferences::defaultTextSize;
    Preferences::RememberEquations = true;
  }
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

  ManualClock clock;
};

template <class WindowClass>
void ExpectOneAtATime(Qt::WindowFlags buttons, const QSize& size, bool resizeable) {
  WindowClass& first = WindowClass::Instance();
  EXPECT_EQ(&WindowClass::Instance(), &first);
  EXPECT_EQ(WindowCount(), 1);
  EXPECT_EQ(QSize(first.Width(), first.Height()), size);
  EXPECT_EQ(first.windowFlags() & (Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint), buttons);
  first.SetWidth(size.width() + 100);
  EXPECT_EQ(first.Width() > size.width(), resizeable);
  QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &first, Qt::Key_Escape);
  EXPECT_EQ(WindowCount(), 0);
  EXPECT_NE(&WindowClass::Instance(), &first) << "closed, though not yet destroyed";
  EXPECT_EQ(WindowCount(), 1);
  WindowClass::Instance().Close();
}

TEST_F(ShellWindows, OneAtATimeUntilEscape) {
  ExpectOneAtATime<winHelp>(Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint, {538, 580}, true);
  ExpectOneAtATime<winPreferences>(Qt::WindowCloseButtonHint, {319, 86}, false);
  ExpectOneAtATime<winAbout>(Qt::WindowCloseButtonHint, {284, 158}, false);
}

TEST_F(ShellWindows, TheSizeInForceIsInTheList) {
  const struct {
    Int32 textSize;
    const char* rows;
  } rows[] = {
      {13, "11 [13] 16 20 24 36 48 64 72 96 "},
      {15, "[15] - 11 13 16 20 24 36 48 64 72 96 "},
      {-2147483648, "[-2147483648] - 11 13 16 20 24 36 48 64 72 96 "},
  };
  for (const auto& row : rows) {
    Preferences::TextSize = row.textSize;
    EXPECT_EQ(Sizes(), row.rows);
    EXPECT_EQ(Preferences::TextSize, row.textSize) << "opening the window changes nothing";
    winPreferences::Instance().Close();
  }
}

TEST_F(ShellWindows, TheSeparatorCannotBeChosen) {
  Preferences::TextSize = 15;
  QComboBox& sizes = winPreferences::Instance().popSize();
  const std::pair<std::function<void()>, std::function<void()>> downAndUp[] = {
      {[&] { QTest::keyClick(&sizes, Qt::Key_Down); }, [&] { QTest::keyClick(&sizes, Qt::Key_Up); }},
      {[&] { Wheel(sizes, 1); }, [&] { Wheel(sizes, -1); }},
  };
  for (const auto& [down, up] : downAndUp) {
    down();
    EXPECT_EQ(Preferences::TextSize, 11);
    up();
    EXPECT_EQ(Preferences::TextSize, 15);
  }
  QTest::keyClicks(&sizes, "-");
  EXPECT_EQ(Preferences::TextSize, 15);

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
  const winSumlet* equations[] = {behind, new winSumlet, new winSumlet};
  sizes.setCurrentIndex(sizes.findText("72"));
  EXPECT_EQ(Preferences::TextSize, 72);
  for (const winSumlet* equation : equations) {
    EXPECT_EQ(equation->TextSize, 72);
    EXPECT_EQ(equation->textInput().font().pointSize(), 72);
  }
}

TEST_F(ShellWindows, TheBoxIsTheSetting) {
  for (const bool remembered : {true, false}) {
    Preferences::RememberEquations = remembered;
    QCheckBox& box = winPreferences::Instance().chkRestoreEquations();
    EXPECT_EQ(box.isChecked(), remembered);
    EXPECT_EQ(Preferences::RememberEquations, remembered);
    box.click();
    EXPECT_EQ(Preferences::RememberEquations, !remembered);
    winPreferences::Instance().Close();
  }
}

TEST_F(ShellWindows, TheCardStaysBlackOnWhite) {
  winHelp& help = winHelp::Instance();
  Listbox& list = help.list();
  EXPECT_EQ(list.ListCount(), 41);

  const QImage before = list.viewport()->grab().toImage();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(3, 1)).center());
  EXPECT_EQ(list.ListIndex(), 3);
  EXPECT_EQ(list.viewport()->grab().toImage(), before) << "no highlight";

  help.SetWidth(700);
  EXPECT_EQ(list.geometry(), QRect(-1, -1, 702, 581));
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
  const winPreferences& preferences = winPreferences::Instance();
  const QWidget* controls[] = {&about.stApp(), &about.stVersion(), &about.stCopyright(),
                               &preferences.chkRestoreEquations()};
  for (const QWidget* control : controls) {
    EXPECT_LE(control->sizeHint().width(), control->width());
    EXPECT_LE(control->fontMetrics().height(), control->height());
  }
  QApplication::setFont(before);
}

TEST(ApplicationIcon, HasAPictureForEverySize) {
  for (const int size : {16, 24, 32, 48, 64, 128, 256})
    EXPECT_EQ(ApplicationIcon().pixmap(size).toImage().size(), QSize(size, size));
}

}  // namespace
}  // namespace sumlet
