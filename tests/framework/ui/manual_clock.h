// A clock that stands still until the test moves it.
#pragma once

#include <map>

#include "framework/ui/timer.h"

namespace sumlet {

class ManualClock final : public Clock {
 public:
  ManualClock() { SetClock(this); }
  ~ManualClock() override { SetClock(nullptr); }

  void Arm(Timer& timer, Int32 milliseconds) override { due_[&timer] = now_ + milliseconds; }
  void Disarm(Timer& timer) override { due_.erase(&timer); }

  [[nodiscard]] Int32 Now() const { return now_; }  // in milliseconds

  // Lets time pass; what falls due meanwhile expires.
  void Advance(Int32 milliseconds) {
    for (; milliseconds > 0; --milliseconds) {
      ++now_;
      for (const auto& [timer, due] : std::map(due_))
        if (due <= now_ && due_.erase(timer) == 1) timer->Expire();
    }
  }

 private:
  Int32 now_ = 0;
  std::map<Timer*, Int32> due_;
};

}  // namespace sumlet
