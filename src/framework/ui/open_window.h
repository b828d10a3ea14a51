// OpenWindow: finds the window of a class of which there is at most one.
#pragma once

#include "framework/ui/window.h"

namespace sumlet {

// The frontmost open window of the class; nullptr when there is none. A window that has closed is not open any more,
// even if it lives on for a moment.
template <class WindowClass>
[[nodiscard]] WindowClass* OpenWindow() {
  for (Int32 i = 0; i < WindowCount(); ++i)
    if (auto* open = dynamic_cast<WindowClass*>(&WindowAt(i))) return open;
  return nullptr;
}

}  // namespace sumlet
