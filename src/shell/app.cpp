#include "shell/app.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QScopeGuard>
#include <QString>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "equationwindow/closed_equations.h"
#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/text/array.h"
#include "framework/ui/edit_items.h"
#include "framework/ui/menu_bar.h"
#include "framework/ui/window.h"
#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "shell/menus.h"
#include "shell/text_import.h"
#include "shell/web_addresses.h"
#include "shell/win_about.h"
#include "shell/win_help.h"
#include "shell/win_preferences.h"
#include "templates/templates_manager.h"

namespace sumlet {
namespace {

// All delays are in milliseconds.
constexpr Int32 saveDelay = 300000;
constexpr Int32 recoveryDelay = 1000;
constexpr Int32 longestRecoveryDelay = 5000;
constexpr Int32 reviewDelay = 100;

// The open windows, from front to back. The pointers stay valid when an action closes or reorders windows.
std::vector<QPointer<Window>> OpenWindows() {
  std::vector<QPointer<Window>> windows;
  windows.reserve(static_cast<std::size_t>(WindowCount()));
  for (Int32 i = 0; i < WindowCount(); ++i) windows.emplace_back(&WindowAt(i));
  return windows;
}

std::vector<const MyWindowManager::StoredWindow*> StoredWindows() {
  std::vector<const MyWindowManager::StoredWindow*> windows;
  for (const Window* window : OpenWindows())
    windows.push_back(dynamic_cast<const MyWindowManager::StoredWindow*>(window));
  return windows;
}

void AppendWebItem(MenuBar& menuBar, const char* name, const char* text, String address) {
  menuBar.AddItem(menuBar.Menu("HelpMenu"), {name, text});
  menuBar.BindHandler(name, [address = std::move(address)] {
    ShowURL(address);
    return true;
  });
}

// AppendMenuItems adds these items at the end of the start. The user may press a key before that.
void EnableAppended(MenuBar& menuBar) {
  if (!menuBar.HasItem("FileReopenClosed")) return;
  if (!ClosedEquations::IsEmpty()) menuBar.Enable("FileReopenClosed");
  const auto* equation = WindowCount() > 0 ? dynamic_cast<const winSumlet*>(&WindowAt(0)) : nullptr;
  const bool isFull = equation != nullptr && equation->IsFullScreen();
  QAction& item = menuBar.Item("FullScreen");
  item.setEnabled(equation != nullptr);
  item.setText(isFull ? QStringLiteral("Exit Full Screen") : QStringLiteral("Enter Full Screen"));
}

void EnableTextSizes(MenuBar& menuBar) {
  const Int32 size = Preferences::TextSize;
  if (winPreferences::TextSizeAfter(size, 1) != size) menuBar.Enable("EditLargerText");
  if (winPreferences::TextSizeAfter(size, -1) != size) menuBar.Enable("EditSmallerText");
  if (size != Preferences::defaultTextSize) menuBar.Enable("EditNormalText");
}

}  // namespace

SaveTimer::SaveTimer() {
  Action = [this](Timer&) { Event_Action(); };
}

void SaveTimer::Event_Action() { Preferences::Save(); }

App::App() : windowList_(MyWindowManager::WindowList.Set(StoredWindows)) {
  tmrRecovery_.SetPeriod(recoveryDelay);
  tmrRecoveryDeadline_.SetPeriod(longestRecoveryDelay);
  tmrRecovery_.Action = tmrRecoveryDeadline_.Action = [this](Timer&) { WriteRecovery(); };
}

// The settings file stores the sections in this order.
void App::ConnectSettings() {
  TemplatesManager::RegisterSection();
  MyWindowManager::RegisterSection();
  MyWindowManager::RegisterRestorer(
      {"template", [](const MyWindowManager::Record&) { winTemplates::Instance().Show(); }});
  MyWindowManager::RegisterRestorer({"equation", winSumlet::RestoreFrom});
}

// Loading shows an alert for each damaged part. While one is open, the user may quit or start the program again.
void App::Event_Open() {
  {
    const auto loaded = qScopeGuard([this] { loaded_ = true; });
    const SingleActivation frontOnly;
    Preferences::Load();
  }
  if (quitting_) FilesToOpen.clear();
  const Array<String> unopened = OpenTextFiles(FilesToOpen);
  if (WindowCount() == 0 && !quitting_) winTemplates::Instance().Show();
  AppendMenuItems();
  ReportUnopened(unopened);
  tmrReview = std::make_unique<ReviewTimer>(ShareOnFacebook);
  tmrReview->SetPeriod(reviewDelay);
  tmrReview->SetMode(TimerMode::Single);
}

void App::Event_Reopen(const std::vector<FolderItem>& files) {
  if (quitting_) return;
  if (!loaded_) FilesToOpen.insert(FilesToOpen.end(), files.begin(), files.end());
  const Array<String> unopened = loaded_ ? OpenTextFiles(files) : Array<String>();
  if (WindowCount() > 0)
    WindowAt(0).Show();
  else if (loaded_)
    winTemplates::Instance().Show();
  if (QWidget* alert = QApplication::activeModalWidget()) {
    alert->raise();
    alert->activateWindow();
  }
  ReportUnopened(unopened);
}

void App::OpenDropped(const std::vector<FolderItem>& files) {
  if (quitting_ || !loaded_) return;
  const Int32 before = WindowCount();
  const Array<String> unopened = OpenTextFiles(files, FileKinds::Text);
  if (WindowCount() > before) WindowAt(0).Show();
  ReportUnopened(unopened);
}

bool App::Event_CancelClose() {
  CommitComposition();
  SaveBeforeEnd();
  return false;
}

void App::SaveBeforeEnd() {
  if (!loaded_ || quitting_) return;
  tmrRecovery_.SetMode(TimerMode::Off);
  tmrRecoveryDeadline_.SetMode(TimerMode::Off);
  Preferences::Save();
  Preferences::FinishSaving();
}

bool App::_FileNew_Action() {
  winTemplates::Instance().Show();
  return true;
}

bool App::_FileNewWindow_Action() {
  new winSumlet;
  return true;
}

void App::OpenEquation(const winTemplates::Template* chosen) {
  auto* window = new winSumlet;
  if (chosen) window->SetEquation(chosen->Name, chosen->Text);
}

void App::ScheduleSave() {
  if (!Preferences::RememberEquations) return;
  if (!tmrSave) tmrSave = std::make_unique<SaveTimer>();
  tmrSave->SetPeriod(saveDelay);
  tmrSave->SetMode(TimerMode::Single);
  ScheduleRecovery();
}

void App::ScheduleRecovery() {
  if (!loaded_ || quitting_) return;
  tmrRecovery_.SetMode(TimerMode::Single);
  if (tmrRecoveryDeadline_.Mode() == TimerMode::Off) tmrRecoveryDeadline_.SetMode(TimerMode::Single);
}

// Does nothing until the start has finished and made tmrReview, because the settings file already holds the restored
// windows. While RememberEquations is off, replaces an older recovery file, which may still hold windows.
void App::WindowListChanged() {
  if (!tmrReview) return;
  if (Preferences::RememberEquations || Preferences::HasRecovery()) ScheduleRecovery();
}

// If the disk is still busy with the previous write, tries again a second later.
void App::WriteRecovery() {
  tmrRecovery_.SetMode(TimerMode::Off);
  tmrRecoveryDeadline_.SetMode(TimerMode::Off);
  if (!Preferences::SaveRecovery()) ScheduleRecovery();
}

void App::ShareOnFacebook() { ShowURL(WebAddresses::Share()); }

void App::LaunchReview() { ShowURL(WebAddresses::Store()); }

// Ending the event loop also ends the nested loops of alerts, which then close without an answer.
void App::Quit() {
  if (quitting_) return;
  if (Event_CancelClose()) return;
  quitting_ = true;
  for (const QPointer<Window>& window : OpenWindows())
    if (window) window->Close(true);
  QCoreApplication::exit(0);
}

void App::BindMenuHandlers() {
  MenuBar& menuBar = MenuBar1();
  menuBar.BindHandler("FileNew", [this] { return _FileNew_Action(); });
  menuBar.BindHandler("FileCLose", [] { return _FileCLose_Action(); });
  menuBar.BindHandler("HelpSumletHelp", [] { return _HelpSumletHelp_Action(); });
  menuBar.BindHandler("FileNewWindow", [this] { return _FileNewWindow_Action(); });
  menuBar.BindHandler("FileImport", [] { return _FileImport_Action(); });
  menuBar.BindHandler("ApplePreferences", [] { return _ApplePreferences_Action(); });
  menuBar.BindHandler("WindowBringAlltoFront", [] { return _WindowBringAlltoFront_Action(); });
  menuBar.BindHandler("WindowMinimize", [] { return _WindowMinimize_Action(); });
  menuBar.BindHandler("AppleAbout", [] { return _AppleAbout_Action(); });
  menuBar.BindHandler("EditLargerText", [] { return StepTextSize(1); });
  menuBar.BindHandler("EditSmallerText", [] { return StepTextSize(-1); });
  menuBar.BindHandler("EditNormalText", [] { return _EditNormalText_Action(); });
  menuBar.BindHandler("EditShowLineValues", [] { return _EditShowLineValues_Action(); });
  menuBar.BindHandler("FileReopenClosed", [] { return _FileReopenClosed_Action(); });
  menuBar.BindHandler("HelpLanguage", [] {
    ShowURL(WebAddresses::LanguageReference());
    return true;
  });
  menuBar.BindHandler("FileQuit", [this] {
    Quit();
    return true;
  });
  menuBar.EnableMenuItems = [] { Event_EnableMenuItems(); };
}

void App::AppendMenuItems() {
  MenuBar& menuBar = MenuBar1();
  menuBar.AddItem(menuBar.Menu("HelpMenu"), {"UntitledSeparator6", "-"});
  AppendWebItem(menuBar, "Website", "Website...", WebAddresses::Website());
  AppendWebItem(menuBar, "Feedback", "Feedback...", WebAddresses::Feedback());
  AppendWebItem(menuBar, "Share", "Share on Facebook...", WebAddresses::Share());

  QMenu& fileMenu = menuBar.Menu("FileMenu");
  menuBar.AddItem(fileMenu, {"FullScreen", "Enter Full Screen", "F11; Meta+Ctrl+F", false});
  menuBar.BindHandler("FullScreen", [] {
    if (WindowCount() > 0) WindowAt(0).ToggleFullScreen();
    return true;
  });
  menuBar.AddItem(fileMenu, {"UntitledSeparator9", "-"});
  menuBar.AddItem(fileMenu, {"FileReopenClosed", "Reopen Closed Equation", "Ctrl+Shift+T", false});
}

void App::Event_EnableMenuItems() {
  MenuBar& menuBar = MenuBar1();
  if (WindowCount() > 0) {
    menuBar.Enable("FileCLose");
    if (WindowAt(0).MinimizeButton()) menuBar.Enable("WindowMinimize");
    menuBar.Enable("WindowBringAlltoFront");
  }
  EnableAppended(menuBar);
  EnableTextSizes(menuBar);
  QAction& lineValues = menuBar.Item("EditShowLineValues");
  lineValues.setCheckable(true);
  lineValues.setChecked(Preferences::ShowLineValues);
  MyWindowManager::BuildWindowMenu(menuBar.Menu("WindowMenu"));
}

bool App::_FileCLose_Action() {
  WindowAt(0).Close();
  return true;
}

bool App::_HelpSumletHelp_Action() {
  winHelp::Instance().Show();
  return true;
}

bool App::_FileReopenClosed_Action() {
  ClosedEquations::Reopen();
  return true;
}

bool App::StepTextSize(Int32 steps) {
  winPreferences::ChooseTextSize(winPreferences::TextSizeAfter(Preferences::TextSize, steps));
  return true;
}

bool App::_EditNormalText_Action() {
  winPreferences::ChooseTextSize(Preferences::defaultTextSize);
  return true;
}

bool App::_EditShowLineValues_Action() {
  Preferences::ShowLineValues = !Preferences::ShowLineValues;
  for (Int32 i = WindowCount() - 1; i >= 0; --i)
    if (auto* equation = dynamic_cast<winSumlet*>(&WindowAt(i))) equation->ShowLineValues(Preferences::ShowLineValues);
  return true;
}

bool App::_FileImport_Action() {
  ImportTextFiles();
  return true;
}

bool App::_ApplePreferences_Action() {
  winPreferences::Instance().Show();
  return true;
}

// From back to front, which keeps the order.
bool App::_WindowBringAlltoFront_Action() {
  const std::vector<QPointer<Window>> windows = OpenWindows();
  const SingleActivation frontOnly;
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    if (*window) (*window)->Show();
  return true;
}

bool App::_WindowMinimize_Action() {
  WindowAt(0).showMinimized();
  return true;
}

bool App::_AppleAbout_Action() {
  winAbout::Instance().Show();
  return true;
}

}  // namespace sumlet
