// ReviewTimer: asks the user once, after a few starts, to recommend the program.
#pragma once

#include <functional>

#include "framework/ui/timer.h"

namespace sumlet {

class ReviewTimer final : public Timer {
 public:
  // `share` opens the share page; called if the user agrees.
  explicit ReviewTimer(std::function<void()> share);

  // Asks if the program has been started often enough and has never asked before. Saves that it has asked before it
  // shows the question, so that the question never comes again, however the program ends.
  void Event_Action();

 private:
  std::function<void()> share_;
};

}  // namespace sumlet
