#include "framework/ui/timer.h"

#include <gtest/gtest.h>

#include <optional>

#include "framework/ui/manual_clock.h"

namespace sumlet {
namespace {

TEST(Timer, FiresOnceAnArming) {
  ManualClock clock;
  int fired = 0;
  std::optional<Timer> timer(std::in_place);
  timer->Action = [&](Timer& sender) {
    if (++fired == 1) sender.SetMode(TimerMode::Single);
  };
  timer->SetPeriod(250);
  timer->SetMode(TimerMode::Single);
  clock.Advance(1000);
  EXPECT_EQ(fired, 2) << "armed again by its own action, once";
  timer->SetMode(TimerMode::Single);
  timer->SetMode(TimerMode::Off);
  clock.Advance(1000);
  EXPECT_EQ(fired, 2) << "switched off";
  timer->SetMode(TimerMode::Single);
  timer.reset();
  clock.Advance(1000);
  EXPECT_EQ(fired, 2) << "gone";
}

}  // namespace
}  // namespace sumlet
