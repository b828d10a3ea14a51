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
  for (const bool byKey : {true, false, true}) {
    byKey ? QTest::keyClick(&area, Qt::Key_1) : QTest::mouseClick(area.viewport(), Qt::LeftButton);
    clock.Advance(CaretRest::BlinkingTime - 1);
    EXPECT_EQ(QApplication::cursorFlashTime(), desktops);
  }
  clock.Advance(1);
  EXPECT_EQ(QApplication::cursorFlashTime(), 0);
  caretRest.reset();
  EXPECT_EQ(QApplication::cursorFlashTime(), desktops);
}

}  // namespace
}  // namespace sumlet
