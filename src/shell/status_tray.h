// StatusTray: the icon in the desktop's status tray while no window is open. On a desktop without a tray, starting the
// program again opens a window.
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>

namespace sumlet {

class App;

class StatusTray {
 public:
  explicit StatusTray(App& app) : app_(app) {}

  // Shows the icon if no window is open and the application is not quitting, otherwise hides it. Call it whenever a
  // window has opened or closed.
  void Follow();

 private:
  struct Icon {
    QMenu menu;
    QSystemTrayIcon icon;
    QAction* reopenClosed = nullptr;
  };

  void Create();

  App& app_;
  std::unique_ptr<Icon> icon_;  // created when first needed, because that is slow
};

}  // namespace sumlet
