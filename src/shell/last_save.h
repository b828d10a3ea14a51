// LastSave: a chance to save when a library ends the process.
//
// That is how the toolkit takes the loss of the display: it calls exit from within the event loop, which neither
// returns nor unwinds, so that the objects of main still stand while the handlers of exit run.
#pragma once

#include <functional>

namespace sumlet {

class LastSave {
 public:
  // Runs `save` on the event thread when the process is being ended by exit, or the Wayland compositor has ended, while
  // this object lives; then ends it at once, with status 1.
  // `save` must ask nothing of the display or the user. There is one object of this class at a time, and what `save`
  // uses has come into being before it.
  explicit LastSave(std::function<void()> save);
  LastSave(const LastSave&) = delete;
  LastSave& operator=(const LastSave&) = delete;
  ~LastSave();
};

}  // namespace sumlet
