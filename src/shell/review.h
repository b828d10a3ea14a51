// ReviewTimer: asks a user who has come back a few times, once in the life of the installation, to tell others.
#pragma once

#include <functional>

#include "framework/ui/timer.h"

namespace sumlet {

class ReviewTimer final : public Timer {
 public:
  // `share` opens the share page; it runs when the user wants to.
  explicit ReviewTimer(std::function<void()> share);

  // Asks, if it is time to and if it has never been done. That it has been done is saved before the question stands, so
  // the question does not come again, however the program ends.
  void Event_Action();

 private:
  std::function<void()> share_;
};

}  // namespace sumlet
