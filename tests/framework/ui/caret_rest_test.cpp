#include "framework/ui/caret_rest.h"

#include <QPlainTextEdit>
#include <optional>

#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

TEST(CaretRest, StandsStillWhenNobodyWorks) {
  ManualClock clock;
  const int desktops = QApplication::cursorFlashTime();
  ASSERT_GT(desktops, 0);
  std::optional<CaretRest> caretRest(std::in_place);
  QPlainTextEdit area;
  area.show();
  area.activateWindow();
  QCoreApplication::processEvents();
  for (const int work : {0, 1, 2}) {
    for (int i = 0; i < 2; ++i) {
      if (work == 0) QTest::keyClick(&area, Qt::Key_1);
      if (work == 1) QTest::mouseClick(area.viewport(), Qt::LeftButton);
      if (work == 2) area.clearFocus(), area.setFocus();
      clock.Advance(CaretRest::BlinkingTime - 1);
      EXPECT_EQ(QApplication::cursorFlashTime(), desktops);
    }
    clock.Advance(1);
    EXPECT_EQ(QApplication::cursorFlashTime(), 0);
  }
  caretRest.reset();
  EXPECT_EQ(QApplication::cursorFlashTime(), desktops);
}

}  // namespace
}  // namespace sumlet
