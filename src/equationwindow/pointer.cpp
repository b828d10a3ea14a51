// Mouse actions of an equation window that its text areas do not handle.
#include <QMouseEvent>
#include <QWheelEvent>

#include "equationwindow/win_sumlet.h"

namespace sumlet {

// Listens to the viewports of both areas, ahead of the areas themselves.
bool winSumlet::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel) return TurnWheel(static_cast<const QWheelEvent&>(*event));
  if (event->type() == QEvent::MouseButtonDblClick && watched == textOutput().viewport())
    return DoubleClickResult(static_cast<const QMouseEvent&>(*event));
  return BaseWindow::eventFilter(watched, event);
}

// With Ctrl the wheel changes the text size. A fine wheel or a touch pad takes several events for one step.
bool winSumlet::TurnWheel(const QWheelEvent& event) {
  if (!(event.modifiers() & Qt::ControlModifier)) return false;
  wheelTurn_ += event.angleDelta().y();
  const int steps = wheelTurn_ / QWheelEvent::DefaultDeltasPerStep;
  wheelTurn_ %= QWheelEvent::DefaultDeltasPerStep;
  if (steps != 0 && StepTextSize) StepTextSize(steps);
  return true;
}

// A double click on an error leads to its line. On a value it selects, as in every text.
bool winSumlet::DoubleClickResult(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton || !math->ResultIsError()) return false;
  _EditGoToError_Action();
  return true;
}

}  // namespace sumlet
