#include "framework/ui/timer.h"

#include <algorithm>

namespace sumlet {
namespace {
Clock* otherClock = nullptr;
}

void SetClock(Clock* clock) { otherClock = clock; }

Timer::Timer() {
  countdown_.setSingleShot(true);
  // The delay decides when a result appears: a coarse timer may be 5 % late.
  countdown_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&countdown_, &QTimer::timeout, &countdown_, [this] { Expire(); });
}

Timer::~Timer() { SetMode(TimerMode::Off); }

void Timer::SetMode(TimerMode mode) {
  mode_ = mode;
  const Int32 delay = std::max(period_, 0);
  if (mode == TimerMode::Off) {
    countdown_.stop();
    if (otherClock) otherClock->Disarm(*this);
  } else if (otherClock) {
    otherClock->Arm(*this, delay);
  } else {
    countdown_.start(delay);
  }
}

void Timer::Expire() {
  mode_ = TimerMode::Off;
  if (Action) Action(*this);
}

}  // namespace sumlet
