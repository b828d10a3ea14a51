// Timer: runs an action once after a delay. Clock: replaces the clock of all timers in tests.
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

  // The delay in milliseconds. Negative values count as 0. A new period takes effect when the timer is next armed.
  [[nodiscard]] Int32 Period() const { return period_; }
  void SetPeriod(Int32 milliseconds) { period_ = milliseconds; }

  // Single arms the timer: after Period milliseconds the mode returns to Off, and Action runs once. Arming an armed
  // timer restarts its countdown.
  [[nodiscard]] TimerMode Mode() const { return mode_; }
  void SetMode(TimerMode mode);

  // Runs on the event loop, with this timer as `sender`. May arm the timer again, but must not destroy it.
  std::function<void(Timer& sender)> Action;

  // Ends the countdown and runs Action. Only the clock calls it.
  void Expire();

 private:
  Int32 period_ = 1000;
  TimerMode mode_ = TimerMode::Off;
  QTimer countdown_;  // used while no other clock is set
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Calls timer.Expire() once, after `milliseconds`, unless Disarm is called first. Restarts an armed timer.
  virtual void Arm(Timer& timer, Int32 milliseconds) = 0;
  // Cancels the call. Does nothing if the timer is not armed.
  virtual void Disarm(Timer& timer) = 0;
};

// Sets the clock of all timers; nullptr, the initial value, is the system's clock. Does not take ownership. Call it
// only while no timer is armed.
void SetClock(Clock* clock);

}  // namespace sumlet
