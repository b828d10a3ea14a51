// BaseWindow: the base of the program's main windows. It keeps track of being minimised.
#pragma once

#include "framework/ui/window.h"

namespace sumlet {

class BaseWindow : public Window {
 public:
  bool Loading = false;  // for windows that fill their own controls: true while they do
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
