#include "shell/app.h"

#include <QApplication>
#include <QInputMethod>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScopeGuard>
#include <QTextBlock>
#include <QTextLayout>

#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/ui/window.h"
#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "shell/text_import.h"
#include "shell/web_addresses.h"
#include "templates/templates_manager.h"

namespace sumlet {
namespace {

constexpr Int32 saveDelay = 300000;  // milliseconds
constexpr Int32 recoveryDelay = 1000;
constexpr Int32 longestRecoveryDelay = 5000;
constexpr Int32 reviewDelay = 100;

void CloseAllWindows() {
  std::vector<QPointer<Window>> windows;
  windows.reserve(static_cast<std::size_t>(WindowCount()));
  for (Int32 i = 0; i < WindowCount(); ++i) windows.emplace_back(&WindowAt(i));
  for (const QPointer<Window>& window : windows)
    if (window) window->Close(true);
}

QString ComposedText(const QPlainTextEdit* area) {
  const QTextLayout* line = area != nullptr ? area->textCursor().block().layout() : nullptr;
  return line != nullptr ? line->preeditAreaText() : QString();
}

// The toolkit is not asked where nothing is composed: its Wayland plug-in crashes when there is no input device. An
// input method that has lost its connection leaves its text uncommitted.
void CommitComposition() {
  const QPointer<QPlainTextEdit> area = qobject_cast<QPlainTextEdit*>(QGuiApplication::focusObject());
  if (ComposedText(area).isEmpty()) return;
  QGuiApplication::inputMethod()->commit();
  const QString left = ComposedText(area);
  if (left.isEmpty()) return;
  QInputMethodEvent event;
  event.setCommitString(left);
  QCoreApplication::sendEvent(area, &event);
}

std::vector<const MyWindowManager::StoredWindow*> StoredWindows() {
  std::vector<const MyWindowManager::StoredWindow*> windows;
  windows.reserve(static_cast<std::size_t>(WindowCount()));
  for (Int32 i = 0; i < WindowCount(); ++i)
    windows.push_back(dynamic_cast<const MyWindowManager::StoredWindow*>(&WindowAt(i)));
  return windows;
}

}  // namespace

SaveTimer::SaveTimer() {
  Action = [this](Timer&) { Event_Action(); };
}

void SaveTimer::Event_Action() { Preferences::Save(); }

App::App() {
  tmrRecovery_.SetPeriod(recoveryDelay);
  tmrRecoveryLatest_.SetPeriod(longestRecoveryDelay);
  tmrRecovery_.Action = tmrRecoveryLatest_.Action = [this](Timer&) { WriteRecovery(); };
}

// The order of the sections is that of the settings file.
void App::ConnectSettings() {
  TemplatesManager::RegisterSection();
  MyWindowManager::RegisterSection();
  MyWindowManager::SetWindowList(StoredWindows);
  MyWindowManager::RegisterRestorer(
      {"template", [](const MyWindowManager::Record&) { winTemplates::Instance().Show(); }});
  MyWindowManager::RegisterRestorer({"equation", winSumlet::RestoreFrom});
}

// Loading shows an alert for each damaged part, and the user may quit, or start the program again, in front of it.
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
  TellOfUnopened(unopened);
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
  TellOfUnopened(unopened);
}

void App::OpenDropped(const std::vector<FolderItem>& files) {
  if (quitting_ || !loaded_) return;
  const Int32 before = WindowCount();
  const Array<String> unopened = OpenTextFiles(files, FileKinds::Text);
  if (WindowCount() > before) WindowAt(0).Show();
  TellOfUnopened(unopened);
}

bool App::Event_CancelClose() {
  CommitComposition();
  SaveBeforeEnd();
  return false;
}

void App::SaveBeforeEnd() {
  if (!loaded_ || quitting_) return;
  tmrRecovery_.SetMode(TimerMode::Off);
  tmrRecoveryLatest_.SetMode(TimerMode::Off);
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
  if (tmrRecoveryLatest_.Mode() == TimerMode::Off) tmrRecoveryLatest_.SetMode(TimerMode::Single);
}

// The windows of the start itself are in the settings file already. While the equations are not to be remembered, a
// recovery file from before that must not keep them either.
void App::WindowListChanged() {
  if (!tmrReview) return;
  if (Preferences::RememberEquations || Preferences::HasRecovery()) ScheduleRecovery();
}

// A disk that still works on the previous write gets the next one a second later.
void App::WriteRecovery() {
  tmrRecovery_.SetMode(TimerMode::Off);
  tmrRecoveryLatest_.SetMode(TimerMode::Off);
  if (!Preferences::SaveRecovery()) ScheduleRecovery();
}

void App::ShareOnFacebook() { ShowURL(WebAddresses::Share()); }

void App::LaunchReview() { ShowURL(WebAddresses::Store()); }

// Ending the event loop ends those of alerts too, which then go without an answer.
void App::Quit() {
  if (quitting_) return;
  if (Event_CancelClose()) return;
  quitting_ = true;
  CloseAllWindows();
  QCoreApplication::exit(0);
}

}  // namespace sumlet
