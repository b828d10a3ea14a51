// Runs the window program as main.cpp wires it, without a screen, by a clock that the test moves.
//
// SUMLET_SOAK_CYCLES is the number of cycles of the test of the memory (60).
#include <malloc.h>

#include <QAccessible>
#include <QClipboard>
#include <QPixmapCache>
#include <cstddef>
#include <tuple>
#include <vector>

#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/file/folder_item.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/menus.h"
#include "templates/templates_manager.h"

// The sanitizers define it. They replace the system's allocator.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();

namespace sumlet {
namespace {

class WholeProgram : public WindowFixture {
 protected:
  WholeProgram() {
    App::ConnectSettings();
    app_.BindMenuHandlers();
    app_.Event_Open();
  }

  static void HandleEvents() {
    QCoreApplication::processEvents();
    DestroyClosed();
  }

  App app_;
  const HookGuard save_ = winSumlet::ScheduleSave.Set([this] { app_.ScheduleSave(); });
  const HookGuard equations_ = winTemplates::OpenEquation.Set(App::OpenEquation);
  const HookGuard menus_ = AttachMenus.Set([](Window& window) { MenuBar1().AttachTo(window); });
};

class Soak : public WholeProgram {
 protected:
  // Types, chooses commands, saves, and restores the session, and closes everything.
  void RunCycle() {
    QGuiApplication::clipboard()->setText("\u03C0 \u00A0\U0001D70B\n# \u20AC\r\n6*7");
    App::OpenEquation(nullptr);
    QTest::keyClicks(&Front<winSumlet>()->textInput(), "frac(1/3)^3 mod (foo \"|");
    for (const char* command :
         {"EditPaste", "EditUndo", "EditSelectAll", "EditCut", "EditPaste", "EditShowLineValues", "FileExport",
          "FileImport", "FullScreen", "WindowMinimize", "FileCLose", "FileReopenClosed", "EditLargerText",
          "FileSaveAsTemplate", "FileNew", "AppleAbout", "HelpSumletHelp", "ApplePreferences", "EditNormalText"}) {
      clock.Advance(300);
      MenuBar1().Choose(command);
      HandleEvents();
      if (QWidget* control = QApplication::focusWidget()) QTest::keyClick(control, Qt::Key_Return);
    }
    app_.Event_CancelClose();
    CloseAll();
    Preferences::Load();
    HandleEvents();
    CloseAll();
    TemplatesManager::Load("\x01");
  }

  static double BytesInUse() {
    if (__sanitizer_get_current_allocated_bytes != nullptr)
      return static_cast<double>(__sanitizer_get_current_allocated_bytes());
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
  }

  const FolderItem file_{folder.filePath("exported.txt").toStdString()};
  const HookGuard opened_ = ShowOpenDialog.Set([this](const OpenDialog&) { return std::vector{file_}; });
  const HookGuard saved_ = ShowSaveAsDialog.Set([this](const SaveAsDialog&, Window&) { return file_; });
  const HookGuard answers_ = ShowDialog.Set([](const MessageDialog&) { return DialogButton::Alternate; });
};

TEST_F(Soak, MemoryStaysFlat) {
  const int cycles = qEnvironmentVariable("SUMLET_SOAK_CYCLES", "60").toInt();
  constexpr int warmUp = 20;            // the toolkit fills its caches
  constexpr double mostGrowth = 65536;  // bytes
  QPixmapCache::setCacheLimit(0);       // it would fill up slowly
  double before = 0;
  for (int cycle = 0; cycle < cycles; ++cycle) {
    RunCycle();
    if (cycle == warmUp) before = BytesInUse();
  }
  EXPECT_LT(BytesInUse(), before + mostGrowth) << before << " after " << warmUp << " cycles";
}

class Accessibility : public WholeProgram {
 protected:
  Accessibility() { QAccessible::setActive(true); }
  ~Accessibility() override { QAccessible::setActive(false); }

  static String NameOf(QWidget& widget) {
    const QAccessibleInterface* control = QAccessible::queryAccessibleInterface(&widget);
    const auto labels = control->relations(QAccessible::Label);
    return (labels.empty() ? control : labels[0].first)->text(QAccessible::Name).toStdString();
  }

  // The names of the controls that Tab reaches.
  static String Controls(Window& window) {
    String names;
    for (QWidget* control : window.findChildren<QWidget*>())
      if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->isVisible() && control->isEnabled())
        names += NameOf(*control) + ";";
    return names;
  }
};

TEST_F(Accessibility, EveryControlHasAName) {
  const std::tuple<const char*, const char*, QAccessible::Role, const char*> rows[] = {
      {"FileNew", "Template Chooser", QAccessible::Window, "Choose;Cancel;Templates;"},
      {"FileNewWindow", "Sumlet", QAccessible::Window, "Equation;Result;"},
      {"FileSaveAsTemplate", "Untitled", QAccessible::Dialog, "Provide a name for the Template:;Cancel;Save;"},
      {"ApplePreferences", "Preferences", QAccessible::Window, "Restore Open Equations on Startup;Text Size;"},
      {"HelpSumletHelp", "Help", QAccessible::Window, "The line language;"},
      {"AppleAbout", "About Sumlet", QAccessible::Window, "Sumlet;Version ;© 2026 The Sumlet developers;"},
  };
  for (const auto& [command, title, role, controls] : rows) {
    MenuBar1().Choose(command);
    HandleEvents();
    const QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&WindowAt(0));
    EXPECT_EQ(window->text(QAccessible::Name).toStdString(), title);
    EXPECT_EQ(window->role(), role) << title;
    EXPECT_EQ(Controls(WindowAt(0)), controls) << title;
  }
}

}  // namespace
}  // namespace sumlet
