#include "framework/ui/base_window.h"

namespace sumlet {

void BaseWindow::Event_Minimize() {
  Minimized = true;
  Minimize();
}

void BaseWindow::Event_Restore() {
  Minimized = false;
  Restore();
}

void BaseWindow::Event_Maximize() {
  Minimized = false;
  Maximize();
}

}  // namespace sumlet
