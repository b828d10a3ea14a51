// App: the application, from the first window to quitting. There is one object, which holds no document.
#pragma once

#include <memory>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/hook.h"
#include "framework/text/text.h"
#include "framework/ui/timer.h"
#include "shell/review.h"
#include "templates/win_templates.h"

namespace sumlet {

// Saves when it fires.
class SaveTimer final : public Timer {
 public:
  SaveTimer();
  void Event_Action();
};

class App {
 public:
  App();

  // Created by the first ScheduleSave.
  std::unique_ptr<SaveTimer> tmrSave;
  // Asks for a review at the fifth start. Created at the end of Event_Open.
  std::unique_ptr<ReviewTimer> tmrReview;
  // The text files that Event_Open opens as equations, in front of the restored windows.
  std::vector<FolderItem> FilesToOpen;

  // Registers the templates and the open windows as sections of the settings. Call it once, before they are loaded.
  static void ConnectSettings();

  // Binds the application's commands to their menu items.
  void BindMenuHandlers();

  // Appends the web items to the Help menu and the full-screen command to the File menu.
  static void AppendMenuItems();

  // Loads the settings and restores the windows; shows the chooser if there are none. Call it once, from the event
  // loop.
  void Event_Open();

  // Handles a second start of the program with `files` to open. Brings the front window and an open alert forward, or
  // shows the chooser if there is no window, not even a hidden one.
  void Event_Reopen(const std::vector<FolderItem>& files = {});

  // Handles files that the user has dropped or pasted. Opens those that hold text and names the others in one dialog.
  void OpenDropped(const std::vector<FolderItem>& files);

  // Commits what an input method is composing, then saves, while all windows are open. Returns false: never refuses to
  // quit.
  bool Event_CancelClose();

  // Saves without using the display. Does nothing before the settings are loaded or after Quit.
  void SaveBeforeEnd();

  // Enables the application's menu items, before a menu opens or a shortcut runs.
  static void Event_EnableMenuItems();

  // The commands. Each returns true: handled.
  bool _FileNew_Action();        // "New from Template Chooser..."
  bool _FileNewWindow_Action();  // "New"
  static bool _FileCLose_Action();
  static bool _HelpSumletHelp_Action();
  static bool _FileImport_Action();
  static bool _ApplePreferences_Action();
  static bool _WindowBringAlltoFront_Action();  // keeps the order of the windows
  static bool _WindowMinimize_Action();
  static bool _AppleAbout_Action();
  static bool _FileReopenClosed_Action();  // the last one closed
  static bool _EditNormalText_Action();
  static bool _EditShowLineValues_Action();  // in all equation windows
  static bool StepTextSize(Int32 steps);     // by that many of the offered sizes; negative for smaller

  // Opens an equation window with the template; an empty one for nullptr.
  static void OpenEquation(const winTemplates::Template* chosen);

  // Saves five minutes after the last call, and calls ScheduleRecovery. Does nothing while RememberEquations is off.
  void ScheduleSave();

  // Writes the recovery file one second after the last call, but no later than five seconds after the first. Does
  // nothing before the settings are loaded and after Quit.
  void ScheduleRecovery();

  // Handles the opening or closing of a window. Calls ScheduleRecovery if windows are remembered or if there is a
  // recovery file. Does nothing before the start has finished.
  void WindowListChanged();

  // Open a web page in the browser: to share Sumlet with friends, and Sumlet's page in the application store.
  static void ShareOnFacebook();
  static void LaunchReview();

  // Saves, then closes all windows and ends the event loop with status 0. Does not prompt, and closes any open alert or
  // sheet.
  void Quit();
  [[nodiscard]] bool Quitting() const { return quitting_; }

 private:
  void WriteRecovery();

  Timer tmrRecovery_;          // since the last change
  Timer tmrRecoveryDeadline_;  // since the first change that the recovery file lacks
  HookGuard windowList_;
  bool loaded_ = false;
  bool quitting_ = false;
};

}  // namespace sumlet
