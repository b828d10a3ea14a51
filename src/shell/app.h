// App: the life of the application, from the first window to quitting. There is one, and it holds no document.
#pragma once

#include <memory>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/hook.h"
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

  // Nothing until the first ScheduleSave, then the same for the rest of the run.
  std::unique_ptr<SaveTimer> tmrSave;
  // Made when the start is over.
  std::unique_ptr<ReviewTimer> tmrReview;
  // The text files that Event_Open opens as equations, in front of the windows of last time.
  std::vector<FolderItem> FilesToOpen;

  // Makes the templates and the open windows a part of the settings. Once, before they are loaded.
  static void ConnectSettings();

  // Binds the commands that the application answers to their menu items.
  void BindMenuHandlers();

  // Appends the web items to the Help menu and the full-screen command to the File menu.
  static void AppendMenuItems();

  // Once, when the event loop runs: brings back the settings and windows of last time, or else shows the chooser.
  void Event_Open();

  // The program was started again while it runs, with `files` to open. Afterwards shows the chooser when no window is
  // open, hidden ones counted; otherwise the front window comes forward, and an alert that stands in front of it.
  void Event_Reopen(const std::vector<FolderItem>& files = {});

  // The user has dropped or pasted `files`. Opens those that hold text and names the others in one dialog.
  void OpenDropped(const std::vector<FolderItem>& files);

  // Commits what an input method is composing, then saves, while all windows stand. False: quitting is never refused.
  bool Event_CancelClose();

  // Saves without asking anything of the display. Does nothing before the settings are loaded or after Quit.
  void SaveBeforeEnd();

  // The application's part of the enabling pass.
  static void Event_EnableMenuItems();

  // The commands. Always True: handled.
  bool _FileNew_Action();        // "New from Template Chooser..."
  bool _FileNewWindow_Action();  // "New"
  static bool _FileCLose_Action();
  static bool _HelpSumletHelp_Action();
  static bool _FileImport_Action();
  static bool _ApplePreferences_Action();
  static bool _WindowBringAlltoFront_Action();  // the order of the windows stays
  static bool _WindowMinimize_Action();
  static bool _AppleAbout_Action();
  static bool _FileReopenClosed_Action();  // the one that was closed last
  static bool _EditNormalText_Action();
  static bool _EditShowLineValues_Action();  // in all equation windows
  static bool StepTextSize(Int32 steps);     // larger by that many of the sizes in Preferences, or smaller

  // Opens the equation that was chosen in the chooser; an empty one for nullptr.
  static void OpenEquation(const winTemplates::Template* chosen);

  // Saves five minutes after the last call, and writes the recovery file by ScheduleRecovery. Does nothing while the
  // equations are not to be remembered.
  void ScheduleSave();

  // Writes the recovery file one second after the last call, and at the latest five seconds after the first. Does
  // nothing before the settings are loaded and after Quit.
  void ScheduleRecovery();

  // A window has opened or closed. Writes the recovery file by ScheduleRecovery when windows belong in it.
  void WindowListChanged();

  // The share page, and the page of the store, in the user's browser.
  static void ShareOnFacebook();
  static void LaunchReview();

  // Saves, then closes all windows and ends the event loop with status 0. Asks nothing, and an alert or sheet that
  // stands does not hold it up.
  void Quit();
  [[nodiscard]] bool Quitting() const { return quitting_; }

 private:
  void WriteRecovery();

  Timer tmrRecovery_;        // since the last change
  Timer tmrRecoveryLatest_;  // since the first change that is not in the recovery file
  HookGuard windowList_;
  bool loaded_ = false;
  bool quitting_ = false;
};

}  // namespace sumlet
