#include "shell/status_tray.h"

#include <QAction>
#include <QCoreApplication>
#include <QString>

#include "equationwindow/closed_equations.h"
#include "framework/ui/window.h"
#include "shell/app.h"
#include "shell/application_icon.h"

namespace sumlet {
namespace {

QString Caption(const char* text) { return QCoreApplication::translate("StatusTray", text); }

}  // namespace

void StatusTray::Follow() {
  const bool wanted = WindowCount() == 0 && !app_.Quitting();
  if (wanted && !icon_) Create();
  if (!icon_) return;
  icon_->icon.setVisible(wanted);
  icon_->reopenClosed->setEnabled(!ClosedEquations::IsEmpty());
}

void StatusTray::Create() {
  icon_ = std::make_unique<Icon>();
  QMenu& menu = icon_->menu;
  QObject::connect(menu.addAction(Caption("New")), &QAction::triggered, &menu,
                   [this] { app_._FileNewWindow_Action(); });
  QObject::connect(menu.addAction(Caption("New from Template Chooser...")), &QAction::triggered, &menu,
                   [this] { app_._FileNew_Action(); });
  icon_->reopenClosed = menu.addAction(Caption("Reopen Closed Equation"));
  QObject::connect(icon_->reopenClosed, &QAction::triggered, &menu, [] { App::_FileReopenClosed_Action(); });
  menu.addSeparator();
  QObject::connect(menu.addAction(Caption("Quit")), &QAction::triggered, &menu, [this] { app_.Quit(); });
  QSystemTrayIcon& icon = icon_->icon;
  icon.setIcon(ApplicationIcon());
  icon.setToolTip(QStringLiteral("Sumlet"));
  icon.setContextMenu(&menu);
  QObject::connect(&icon, &QSystemTrayIcon::activated, &menu, [this](QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) app_.Event_Reopen();
  });
}

}  // namespace sumlet
