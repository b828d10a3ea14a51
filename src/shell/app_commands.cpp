// The commands that the application answers, and its part of enabling them.
#include <vector>

#include "equationwindow/closed_equations.h"
#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/ui/qt_text.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/menus.h"
#include "shell/text_import.h"
#include "shell/web_addresses.h"
#include "shell/win_about.h"
#include "shell/win_help.h"
#include "shell/win_preferences.h"
#include "shell/window_menu.h"

namespace sumlet {
namespace {

void AppendWebItem(MenuBar& menuBar, const char* name, const char* text, String address) {
  menuBar.AddItem(menuBar.Menu("HelpMenu"), {name, text});
  menuBar.BindHandler(name, [address = std::move(address)] {
    ShowURL(address);
    return true;
  });
}

// The items come with the end of the start, and a key may go down before.
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

// From the back to the front, so that the order stays as it was.
bool App::_WindowBringAlltoFront_Action() {
  std::vector<QPointer<Window>> windows;
  for (Int32 i = WindowCount() - 1; i >= 0; --i) windows.emplace_back(&WindowAt(i));
  const SingleActivation frontOnly;
  for (const QPointer<Window>& window : windows) {
    if (window) window->Show();
  }
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
