#include "framework/ui/caret_rest.h"

#include <QPlainTextEdit>

#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

TEST(CaretRest, BlinksUntilTheUserPauses) {
  ManualClock clock;
  const int desktops = QApplication::cursorFlashTime();
  ASSERT_GT(desktops, 0);
  const CaretRest caretRest;
  QPlainTextEdit area;
  area.show();
  QTest::keyClick(&area, Qt::Key_1);
  clock.Advance(CaretRest::BlinkingTime);
  EXPECT_EQ(QApplication::cursorFlashTime(), 0);
  QTest::mouseClick(area.viewport(), Qt::LeftButton);
  EXPECT_EQ(QApplication::cursorFlashTime(), desktops);
}

}  // namespace
}  // namespace sumlet
