#include "framework/ui/caret_rest.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>
#include <optional>

#include "framework/ui/manual_clock.h"

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

  const struct {
    const char* what;
    std::function<void()> work;
  } rows[] = {{"a key", [&area] { QTest::keyClick(&area, Qt::Key_1); }},
              {"a click", [&area] { QTest::mouseClick(area.viewport(), Qt::LeftButton); }},
              {"the focus", [&area] {
                 area.clearFocus();
                 area.setFocus();
               }}};
  for (const auto& [what, work] : rows) {
    work();
    clock.Advance(CaretRest::BlinkingTime - 1);
    EXPECT_EQ(QApplication::cursorFlashTime(), desktops) << what;
    work();
    clock.Advance(CaretRest::BlinkingTime - 1);
    EXPECT_EQ(QApplication::cursorFlashTime(), desktops) << what << " again";
    clock.Advance(1);
    EXPECT_EQ(QApplication::cursorFlashTime(), 0) << what;
  }
  caretRest.reset();
  EXPECT_EQ(QApplication::cursorFlashTime(), desktops);
}

// The caret that stands still is one that is seen.
TEST(CaretRest, StaysInSight) {
  ManualClock clock;
  const CaretRest caretRest;
  QPlainTextEdit area;
  area.show();
  area.activateWindow();
  QTest::keyClick(&area, Qt::Key_1);
  QCoreApplication::processEvents();
  clock.Advance(CaretRest::BlinkingTime);
  const QImage resting = area.viewport()->grab().toImage();
  area.clearFocus();
  QCoreApplication::processEvents();
  EXPECT_NE(resting, area.viewport()->grab().toImage());
}

}  // namespace
}  // namespace sumlet
