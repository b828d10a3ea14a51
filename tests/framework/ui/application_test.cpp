#include "framework/ui/application.h"

#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QTimer>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/desktop.h"
#include "framework/fault.h"
#include "framework/ui/caret_rest.h"
#include "framework/ui/desktop.h"
#include "framework/ui/qt_text.h"
#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

using Faults = WindowFixture;

class FaultyWidget final : public QWidget {
  void paintEvent(QPaintEvent*) override { throw Fault("a key that is not there"); }
};

// Also processes events posted meanwhile.
void ProcessAllEvents() {
  for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
}

TEST_F(Faults, EndTheirEventAndShowOneAlert) {
  FaultyWidget widget;
  std::vector<String> alerts;
  const HookGuard handler = MsgBox.Set([&](std::string_view text) {
    alerts.emplace_back(text);
    // Painting what the alert covers fails again.
    widget.show();
    ProcessAllEvents();
    widget.hide();
  });
  bool wentOn = false;
  QTimer::singleShot(0, [&] {
    QPaintEvent inner(QRect(0, 0, 9, 9));
    QCoreApplication::sendEvent(&widget, &inner);
    wentOn = alerts.empty();
  });
  ProcessAllEvents();
  EXPECT_TRUE(wentOn) << "no alert in the middle of an event";
  EXPECT_EQ(alerts, std::vector<String>{"This could not be done because of a key that is not there."});
  auto& application = *static_cast<Application*>(QCoreApplication::instance());
  application.RunEvent([] { throw std::bad_alloc(); });
  ProcessAllEvents();
  EXPECT_EQ(alerts.back(), "This could not be done because of too little memory.");
}

TEST(Application, RegistersUnderTheNameOfItsSession) { EXPECT_EQ(qApp->sessionId(), "session"); }

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

TEST(Dialogs, AlertText) {
  const String word(40, 'w');
  String lines, tens;
  for (int i = 1; i <= 25; ++i) lines += std::to_string(i) + "\n";
  for (int i = 0; i < 100; ++i) tens += "123 56789 ";
  const std::pair<String, String> rows[] = {
      {"a\r\nb\rc\x01\x7F\td\xFF", "a\nb\nc   d\uFFFD"},   // controls
      {word + word, word + "\u200B" + word},               // a place to break a long word
      {lines, lines.substr(0, lines.find("\n21")) + "…"},  // too many lines
      {tens + "1", tens.substr(0, 999) + "…"},             // too many characters
      {String(999, ' ') + "😀😀", "…"},                      // no half character
  };
  for (const auto& [text, shown] : rows) EXPECT_EQ(FromQString(AlertText(text)), shown) << text;
}

}  // namespace
}  // namespace sumlet
