#include "framework/ui/caret_rest.h"

#include <QApplication>
#include <QEvent>

namespace sumlet {
namespace {

constexpr int standingStill = 0;  // milliseconds of a blink
constexpr int desktopsOwn = -1;

bool IsWork(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::FocusIn:
      return true;
    default:
      return false;
  }
}

}  // namespace

CaretRest::CaretRest() {
  rest_.SetPeriod(BlinkingTime);
  rest_.Action = [](Timer&) { QApplication::setCursorFlashTime(standingStill); };
  qApp->installEventFilter(this);
}

CaretRest::~CaretRest() { QApplication::setCursorFlashTime(desktopsOwn); }

// Every caret of the toolkit follows a change of the time at once.
bool CaretRest::eventFilter(QObject* /*receiver*/, QEvent* event) {
  if (!IsWork(event->type())) return false;
  QApplication::setCursorFlashTime(desktopsOwn);
  rest_.SetMode(TimerMode::Single);
  return false;
}

}  // namespace sumlet
