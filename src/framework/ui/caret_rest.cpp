#include "framework/ui/caret_rest.h"

#include <QApplication>
#include <QEvent>

namespace sumlet {
namespace {

constexpr int noBlinking = 0;  // as a blink period in ms
constexpr int desktopDefault = -1;

bool IsUserInput(QEvent::Type type) {
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
  rest_.Action = [](Timer&) { QApplication::setCursorFlashTime(noBlinking); };
  qApp->installEventFilter(this);
}

CaretRest::~CaretRest() { QApplication::setCursorFlashTime(desktopDefault); }

// All visible carets apply a new blink period immediately.
bool CaretRest::eventFilter(QObject* /*receiver*/, QEvent* event) {
  if (!IsUserInput(event->type())) return false;
  QApplication::setCursorFlashTime(desktopDefault);
  rest_.SetMode(TimerMode::Single);
  return false;
}

}  // namespace sumlet
