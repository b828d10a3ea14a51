// Runs the window program as main.cpp wires it, without a screen, by a clock that the test moves.
//
// SUMLET_SOAK_CYCLES is the number of cycles of the test of the memory (60).
#include <malloc.h>

#include <QAccessible>
#include <QClipboard>
#include <QPixmapCache>
#include <iostream>

#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/menus.h"
#include "shell/win_preferences.h"
#include "templates/templates_manager.h"

// The sanitizers define it. They replace the system's allocator.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();

namespace sumlet {
namespace {

class WholeProgram : public WindowFixture {
 protected:
  WholeProgram() {
    App::ConnectSettings();
    hooks_ = {winSumlet::ScheduleSave.Set([this] { app_.ScheduleSave(); }),
              winTemplates::OpenEquation.Set(App::OpenEquation),
              AttachMenus.Set([](Window& window) { MenuBar1().AttachTo(window); })};
    app_.BindMenuHandlers();
    app_.Event_Open();
  }

  static void HandleEvents() {
    QCoreApplication::processEvents();
    DestroyClosed();
  }

  App app_;
  std::vector<HookGuard> hooks_;
};

class Soak : public WholeProgram {
 protected:
  Soak() {
    const FolderItem file(folder.filePath("exported.txt").toStdString());
    hooks_.push_back(ShowOpenDialog.Set([file](const OpenDialog&) { return std::vector(2, file); }));
    hooks_.push_back(ShowSaveAsDialog.Set([file](const SaveAsDialog&, Window&) { return file; }));
    QPixmapCache::setCacheLimit(0);  // it would fill up slowly
  }

  static void CloseAll() {
    while (WindowCount() > 0) WindowAt(0).Close(true);
    HandleEvents();
  }

  void Type(const char* keys) {
    MenuBar1().Choose("FileNewWindow");
    TextArea& area = Front<winSumlet>()->textInput();
    for (; *keys != '\0'; ++keys) QTest::keyClick(&area, *keys == '\n' ? '\r' : *keys);
    MenuBar1().Choose("EditPaste");
    clock.Advance(300);
    HandleEvents();
  }

  // Types, chooses commands, saves, and restores the session, and closes everything.
  void RunCycle() {
    QGuiApplication::clipboard()->setText("\u03C0 \u00A0\U0001D70B\n# \u20AC\r\n6*7");
    for (const char* keys : {"x=2\ny=x/3\ny*3", "max(sin(2),.5)^3 mod 2", "frac(1/3)", "(1", "3--", "foo \"|"})
      Type(keys);
    WindowAt(0).resize(500, 400);
    for (const char* command : {"EditUndo", "EditSelectAll", "EditCut", "EditPaste", "EditShowLineValues", "FileExport",
                                "FileImport", "FullScreen", "WindowMinimize", "FileCLose", "FileReopenClosed",
                                "FileSaveAsTemplate", "FileNew", "AppleAbout", "HelpSumletHelp", "ApplePreferences"}) {
      MenuBar1().Choose(command);
      if (QWidget* control = QApplication::focusWidget()) QTest::keyClick(control, Qt::Key_Return);
      clock.Advance(300);
      HandleEvents();
    }
    for (const int size : {0, 3}) winPreferences::Instance().popSize().setCurrentIndex(size);
    app_.Event_CancelClose();
    CloseAll();
    Preferences::Load();
    HandleEvents();
    CloseAll();
    TemplatesManager::Load("\x01");
    QGuiApplication::clipboard()->clear();
    HandleEvents();
  }

  static double BytesInUse() {
    if (__sanitizer_get_current_allocated_bytes != nullptr)
      return static_cast<double>(__sanitizer_get_current_allocated_bytes());
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
  }

  HookGuard answers_ = ShowDialog.Set([](const MessageDialog&) { return DialogButton::Alternate; });
};

TEST_F(Soak, MemoryStaysFlat) {
  const int cycles = qEnvironmentVariable("SUMLET_SOAK_CYCLES", "60").toInt();
  constexpr int warmUp = 20;            // the toolkit fills its caches
  constexpr double mostGrowth = 65536;  // bytes
  double before = 0;
  for (int cycle = 0; cycle < cycles; ++cycle) {
    RunCycle();
    if (cycle == warmUp) before = BytesInUse();
  }
  std::cout << "Bytes in use: " << before << " after " << warmUp << " cycles, " << BytesInUse() << " at the end\n";
  EXPECT_LT(BytesInUse(), before + mostGrowth);
}

class Accessibility : public WholeProgram {
 protected:
  Accessibility() { QAccessible::setActive(true); }
  ~Accessibility() override { QAccessible::setActive(false); }

  static String NameOf(const QAccessibleInterface& control) {
    const auto labels = control.relations(QAccessible::Label);
    return (labels.empty() ? &control : labels[0].first)->text(QAccessible::Name).toStdString();
  }

  // The names of the controls that Tab reaches.
  static String Controls(const QAccessibleInterface& parent) {
    String names;
    for (int i = 0; i < parent.childCount(); ++i) {
      const QAccessibleInterface& child = *parent.child(i);
      const auto* widget = qobject_cast<QWidget*>(child.object());
      if (widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() &&
          widget->isEnabled())
        names += NameOf(child) + ";";
      else
        names += Controls(child);
    }
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
    EXPECT_EQ(Controls(*window), controls) << title;
  }
}

}  // namespace
}  // namespace sumlet
