// BaseWindow: the base class of the program's main windows. Records whether the window is minimised.
#pragma once

#include "framework/ui/window.h"

namespace sumlet {

class BaseWindow : public Window {
 public:
  bool Loading = false;  // true while the program, not the user, fills the controls
  bool Minimized = false;

 protected:
  virtual void Maximize() {}
  virtual void Minimize() {}
  virtual void Restore() {}

  void Event_Minimize() override {
    Minimized = true;
    Minimize();
  }
  void Event_Restore() override {
    Minimized = false;
    Restore();
  }
  void Event_Maximize() override {
    Minimized = false;
    Maximize();
  }
};

}  // namespace sumlet
