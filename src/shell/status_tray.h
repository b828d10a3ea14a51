// StatusTray: the icon that stands in the desktop's status tray while no window does. A desktop without a tray shows
// nothing; there, starting the program again brings a window back.
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>

namespace sumlet {

class App;

class StatusTray {
 public:
  explicit StatusTray(App& app) : app_(app) {}

  // Shows the icon when no window is open and the application stays, else hides it. To be called whenever a window has
  // opened or gone.
  void Follow();

 private:
  struct Icon {
    QMenu menu;
    QSystemTrayIcon icon;
    QAction* reopenClosed = nullptr;
  };

  void Create();

  App& app_;
  std::unique_ptr<Icon> icon_;  // nothing before it is first needed: it takes a while to come up
};

}  // namespace sumlet
