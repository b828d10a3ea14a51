// The window program: wires the parts together and runs them.
#include <optional>

#include "equationwindow/win_sumlet.h"
#include "framework/ui/application.h"
#include "framework/ui/browser.h"
#include "framework/ui/caret_rest.h"
#include "framework/ui/desktop_clipboard.h"
#include "framework/ui/dialogs.h"
#include "shell/app.h"
#include "shell/application_icon.h"
#include "shell/last_save.h"
#include "shell/menus.h"
#include "shell/no_display.h"
#include "shell/quit_signals.h"
#include "shell/single_instance.h"
#include "shell/start_requests.h"
#include "shell/status_tray.h"
#include "templates/win_templates.h"

namespace sumlet {
namespace {

// How long a start waits for the running program. That one may be loading a large session, but if it hangs, the user
// still gets a window.
constexpr std::chrono::seconds handOverPatience(10);

int Run(Descriptor requests) {
  std::optional<NoDisplayEndsProgram> noDisplay(std::in_place);
  Application application;
  noDisplay.reset();
  Application::setApplicationName(QStringLiteral("sumlet"));
  Application::setDesktopFileName(QStringLiteral("com.fernhill.sumlet"));
  Application::setApplicationVersion(QStringLiteral(SUMLET_VERSION));
  Application::setWindowIcon(WindowIcon());
  InstallDialogs();
  InstallBrowser();
  InstallClipboard();
  App::ConnectSettings();
  const CaretRest caretRest;

  App app;
  app.BindMenuHandlers();
  SetMenuAttacher([](Window& window) { MenuBar1().AttachTo(window); });
  StatusTray tray(app);
  SetWindowListChanged([&tray] { tray.Follow(); });
  winSumlet::ScheduleSave = [&app] { app.ScheduleSave(); };
  winTemplates::OpenEquation = App::OpenEquation;
  application.QuitRequested = [&app] { app.Quit(); };
  application.SessionEnding = [&app] { app.Event_CancelClose(); };
  const QuitSignals quitSignals([&app] { app.Quit(); });
  const StartRequests startRequests(std::move(requests), [&app] { app.Event_Reopen(); });

  (void)WindowCount();  // the list of windows comes into being, so that it outlives what follows
  const LastSave lastSave([&app] {
    if (!app.Quitting()) app.Event_CancelClose();
  });

  QMetaObject::invokeMethod(
      &application, [&app] { app.Event_Open(); }, Qt::QueuedConnection);
  return Application::exec();
}

}  // namespace
}  // namespace sumlet

int main() {
  using namespace sumlet;
  Claim claim = ClaimInstance(SingleInstanceName(), qgetenv("XDG_ACTIVATION_TOKEN").toStdString(), handOverPatience);
  return claim.start == Start::HandedOver ? 0 : Run(std::move(claim.requests));
}
