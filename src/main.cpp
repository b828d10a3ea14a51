// The window program: connects the parts and runs them.
#include <QMetaObject>
#include <QString>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

#include "equationwindow/win_sumlet.h"
#include "framework/command_line.h"
#include "framework/desktop.h"
#include "framework/fault.h"
#include "framework/file/descriptor.h"
#include "framework/file/folder_item.h"
#include "framework/hook.h"
#include "framework/text/text.h"
#include "framework/ui/application.h"
#include "framework/ui/caret_rest.h"
#include "framework/ui/desktop.h"
#include "framework/ui/incoming_files.h"
#include "framework/ui/window.h"
#include "shell/app.h"
#include "shell/application_icon.h"
#include "shell/menus.h"
#include "shell/process_end.h"
#include "shell/single_instance.h"
#include "shell/start_message.h"
#include "shell/start_requests.h"
#include "shell/startup_notice.h"
#include "shell/status_tray.h"
#include "templates/templates_manager.h"
#include "templates/win_templates.h"

namespace sumlet {
namespace {

// The longest wait for the running program, which may be loading a large session.
constexpr std::chrono::seconds handOverPatience(9);

constexpr char help[] =
    "Usage: sumlet [FILE...]\n"
    "Opens the calculator, and each FILE as an equation in a window of its own.\n"
    "If Sumlet runs already, it opens them.\n"
    "\n"
    "  -h, --help     print this help and end\n"
    "      --version  print the version and end\n"
    "      --         take everything behind it as the name of a file\n"
    "\n"
    "Exit status: 0, also when the files were handed over; 1 without a display, when it\n"
    "is lost, or when a running Sumlet does not answer; 2 when an option is wrong.\n";

// A session manager restarts a program with "-session" and a name, and waits until it registers under that name.
constexpr Option options[] = {{"-session", true}};
constexpr Program program{"sumlet", SUMLET_VERSION, help, options};

// Returns nullptr if no session manager restarted the program.
const char* SessionOf(const CommandLine& line) { return line.options.empty() ? nullptr : line.options.back().value; }

std::vector<FolderItem> ItemsOf(const std::vector<String>& paths) { return {paths.begin(), paths.end()}; }

// Gives the desktop the program's name and icon, and registers the sections of the settings.
void SetUp() {
  Application::setApplicationName(QStringLiteral("Sumlet"));
  Application::setDesktopFileName(QStringLiteral("com.fernhill.sumlet"));
  Application::setApplicationVersion(QStringLiteral(SUMLET_VERSION));
  Application::setWindowIcon(WindowIcon());
  App::ConnectSettings();
}

// Also writes the message to the standard error, because there may be no display.
int EndUnanswered() {
  constexpr char message[] = "Sumlet is already running, but it does not answer.";
  constexpr int status = EXIT_FAILURE;
  std::fprintf(stderr, "sumlet: %s\n", message);
  const NoDisplayEndsProgram noDisplay;
  const Application application;
  const QuickEndOnWayland end(status);
  const auto desktop = InstallDesktop();
  MsgBox(message);
  return status;
}

// Connects the lower layers with the application while the guards live.
std::vector<HookGuard> Connect(App& app, StatusTray& tray) {
  return {AttachMenus.Set([](Window& window) {
            MenuBar1().AttachTo(window);
            if (dynamic_cast<winSumlet*>(&window) || dynamic_cast<winTemplates*>(&window)) AcceptFiles(window);
          }),
          WindowListChanged.Set([&app, &tray] {
            tray.Follow();
            app.WindowListChanged();
          }),
          OpenFiles.Set([&app](const auto& dropped) { app.OpenDropped(dropped); }),
          winSumlet::ScheduleSave.Set([&app] { app.ScheduleSave(); }),
          winSumlet::StepTextSize.Set(App::StepTextSize),
          winTemplates::OpenEquation.Set(App::OpenEquation)};
}

int Run(Descriptor requests, const CommandLine& line, const std::vector<String>& files) {
  int status = EXIT_SUCCESS;
  std::optional<NoDisplayEndsProgram> noDisplay(std::in_place);
  Application application(SessionOf(line));
  const QuickEndOnWayland end(status);
  noDisplay.reset();
  SetUp();
  const auto desktop = InstallDesktop();
  const CaretRest caretRest;

  App app;
  app.FilesToOpen = ItemsOf(files);
  app.BindMenuHandlers();
  StatusTray tray(app);
  const auto templateChanges = TemplatesManager::NotifyOfChanges([&app] { app.ScheduleRecovery(); });
  const auto hooks = Connect(app, tray);
  application.QuitRequested = [&app] { app.Quit(); };
  application.SessionEnding = [&app] { app.Event_CancelClose(); };
  const QuitSignals quitSignals([&app] { app.Quit(); });
  const StartRequests startRequests(
      std::move(requests), [&app] { return !app.Quitting(); },
      [&app](const auto& paths) { app.Event_Reopen(ItemsOf(paths)); });

  const LastSave lastSave([&app] { app.SaveBeforeEnd(); });

  QMetaObject::invokeMethod(
      &application, [&app] { app.Event_Open(); }, Qt::QueuedConnection);
  status = Application::exec();
  return status;
}

}  // namespace
}  // namespace sumlet

int main(int count, char** arguments) {
  using namespace sumlet;
  SurviveLostStreams();
  const CommandLine line = ReadCommandLine(program, count, arguments);
  if (line.exitStatus) return *line.exitStatus;
  StartRequest request{qgetenv("XDG_ACTIVATION_TOKEN").toStdString(), {}};
  for (const char* name : line.names) request.files.push_back(FolderItem(name).AbsolutePath());
  const std::optional<String> message = MessageFor(request);
  if (!message) {
    Complain(program, "the names of the files", "too long for one start");
    return 2;
  }
  Claim claim = ClaimInstance(PathsForSettings(), *message, handOverPatience);
  if (claim.start == Start::HandedOver) {
    EndStartupNotice();
    return EXIT_SUCCESS;
  }
  if (claim.start == Start::Unanswered) return EndUnanswered();
  return Run(std::move(claim.requests), line, request.files);
}
