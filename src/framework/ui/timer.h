// Timer: one action after a delay. Clock: replaces the time behind all timers in tests.
#pragma once

#include <QTimer>
#include <functional>

#include "framework/text/text.h"

namespace sumlet {

enum class TimerMode { Off = 0, Single = 1 };

class Timer {
 public:
  Timer();
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  // The delay in milliseconds; a negative one counts as 0. A new period takes effect at the next arming.
  [[nodiscard]] Int32 Period() const { return period_; }
  void SetPeriod(Int32 milliseconds) { period_ = milliseconds; }

  // Single arms the timer: Action runs once, Period milliseconds from now, and the timer is off again before it runs.
  // Arming an armed timer restarts its countdown.
  [[nodiscard]] TimerMode Mode() const { return mode_; }
  void SetMode(TimerMode mode);

  // Runs on the event loop, `sender` being this timer. It may arm the timer again; it must not destroy it.
  std::function<void(Timer& sender)> Action;

  // The countdown has ended. Called by the clock only.
  void Expire();

 private:
  Int32 period_ = 1000;
  TimerMode mode_ = TimerMode::Off;
  QTimer countdown_;  // counts while no other clock is set
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Calls timer.Expire() once, `milliseconds` from now, unless Disarm comes first. An armed timer starts anew.
  virtual void Arm(Timer& timer, Int32 milliseconds) = 0;
  // Does nothing for a timer that is not armed.
  virtual void Disarm(Timer& timer) = 0;
};

// The clock behind every timer; nullptr, as at start, is the desktop's. Not owned. Exchange it while no timer is armed.
void SetClock(Clock* clock);

}  // namespace sumlet
