// Full screen. The desktop holds the state; the window only remembers where it stood before.
#include "equationwindow/closed_equations.h"
#include "equationwindow/win_sumlet.h"

namespace sumlet {

// The window manager may have given the window its new size before it told of the new state, so the bounds are not
// asked of the window now.
void winSumlet::StoreWindowedBounds() {
  const QRect bounds = WindowedBounds();
  NonFullscreenLeft = bounds.x();
  NonFullscreenTop = bounds.y();
  NonFullscreenWidth = bounds.width();
  NonFullscreenHeight = bounds.height();
}

void winSumlet::Event_FullScreen() { StoreWindowedBounds(); }

// A restored window goes to full screen from the event loop, once it stands on the screen.
void winSumlet::delayToggleFullscreen() {
  tmrDelayToggleFullscreen_.SetPeriod(10);
  tmrDelayToggleFullscreen_.SetMode(TimerMode::Single);
}

void winSumlet::tmrDelayToggleFullscreen_Action(Timer& /*sender*/) { ToggleFullScreen(); }

// Quitting has saved the session by now, with the window in full screen.
bool winSumlet::Event_CancelClose(bool appQuitting) {
  if (!appQuitting) ClosedEquations::Add(*this);
  if (IsFullScreen()) ToggleFullScreen();
  return false;
}

}  // namespace sumlet
