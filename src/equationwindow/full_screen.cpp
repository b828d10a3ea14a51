// Full screen. The desktop holds the state; the window only remembers where it stood before.
#include "equationwindow/closed_equations.h"
#include "equationwindow/win_sumlet.h"

namespace sumlet {

// The window manager may have given the window its new size before it told of the new state, so the bounds are not
// asked of the window now.
void winSumlet::StoreWindowedBounds() {
  const QRect bounds = restoredBounds_.value_or(WindowedBounds());
  NonFullscreenLeft = bounds.x();
  NonFullscreenTop = bounds.y();
  NonFullscreenWidth = bounds.width();
  NonFullscreenHeight = bounds.height();
}

void winSumlet::Event_FullScreen() { StoreWindowedBounds(); }

// A restored window goes to full screen from the event loop, once it is on the screen. The window manager may be about
// to frame it then, and its reported place may or may not include the frame. So its bounds are noted ahead of that.
void winSumlet::delayToggleFullscreen() {
  restoredBounds_ = WindowedBounds();
  tmrDelayToggleFullscreen_.SetPeriod(10);
  tmrDelayToggleFullscreen_.SetMode(TimerMode::Single);
}

void winSumlet::tmrDelayToggleFullscreen_Action(Timer& /*sender*/) {
  ToggleFullScreen();
  restoredBounds_.reset();
}

// Quitting has saved the session by now, with the window in full screen.
bool winSumlet::Event_CancelClose(bool appQuitting) {
  if (!appQuitting) ClosedEquations::Add(*this);
  if (IsFullScreen()) ToggleFullScreen();
  return false;
}

}  // namespace sumlet
