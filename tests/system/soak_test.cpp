// Works the whole program at random by a clock that the test moves, and looks whether its memory stays as it is.
//
// SUMLET_SOAK_SECONDS is how much time passes, of the moved clock (300); SUMLET_SOAK_SEED begins another series.
#include <malloc.h>

#include <QClipboard>
#include <QPixmapCache>
#include <iostream>
#include <random>

#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/menus.h"
#include "shell/win_preferences.h"
#include "templates/templates_manager.h"

// Only the sanitizers bring it, and then it counts in place of the system's allocator.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();

namespace sumlet {
namespace {

double BytesInUse() {
  if (__sanitizer_get_current_allocated_bytes != nullptr)
    return static_cast<double>(__sanitizer_get_current_allocated_bytes());
  const auto heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

// What is typed and pasted: pieces of sound and of hopeless equations.
constexpr const char* typed[] = {"1",     "42",    ".5",      "x",   "=",      "+",    "*",       "/",    "^",
                                 "(",     ")",     "|",       ",",   "\n",     "\n",   "x=2",     "sin(", "max(",
                                 "frac(", " mod ", "sqrt(2)", "// ", "foo \"", "2(3)", "\ny+2\n", "1e9",  "3--"};
constexpr const char* pasted[] = {"\u03C0 \u00A0\U0001D70B", "x=1\ny=x/3\ny*3", "# \u20AC\r\n6*7"};
constexpr const char* commands[] = {
    "FileNewWindow",      "FileNewWindow",  "FileNew",        "FileCLose",       "FileImport",    "FileExport",
    "FileSaveAsTemplate", "EditUndo",       "EditCut",        "EditPaste",       "EditSelectAll", "AppleAbout",
    "FullScreen",         "WindowMinimize", "HelpSumletHelp", "ApplePreferences"};

// A program as main.cpp puts it together, and a user who does whatever comes to mind.
class Soak : public WindowFixture {
 protected:
  static constexpr Int32 mostWindows = 8;

  Soak() {
    App::ConnectSettings();
    winSumlet::ScheduleSave = [this] { app_.ScheduleSave(); };
    winTemplates::OpenEquation = App::OpenEquation;
    SetMenuAttacher([](Window& window) { MenuBar1().AttachTo(window); });
    const FolderItem file(folder.filePath("exported.txt").toStdString());
    SetFileDialogs({[file](const OpenDialog&) { return std::vector(2, file); },
                    [file](const SaveAsDialog&, Window&) { return file; }});
    QPixmapCache::setCacheLimit(0);  // it would fill up slowly
    app_.BindMenuHandlers();
    app_.Event_Open();
  }

  [[nodiscard]] Int32 Any(std::size_t count) { return static_cast<Int32>(random_() % count); }
  template <class Things>
  [[nodiscard]] const auto& AnyOf(const Things& things) {
    return things[Any(std::size(things))];
  }

  static void HandleEvents() {
    QCoreApplication::processEvents();
    DestroyClosed();
  }

  static void CloseAll() {
    while (WindowCount() > 0) WindowAt(0).Close(true);
    HandleEvents();
  }

  static void Type(winSumlet& equation, const char* keys) {
    if (equation.textInput().document()->characterCount() > 400) equation.textInput().selectAll();
    for (; *keys != '\0'; ++keys) QTest::keyClick(&equation.textInput(), *keys == '\n' ? '\r' : *keys);
  }

  // Quits and starts again, as far as that goes without another process.
  void Restart() {
    app_.Event_CancelClose();
    CloseAll();
    Preferences::Load();
  }

  void WorkOn(Window& window) {
    const Int32 choice = Any(100);
    if (auto* equation = dynamic_cast<winSumlet*>(&window); equation && choice < 90)
      Type(*equation, AnyOf(typed));
    else if (auto* preferences = dynamic_cast<winPreferences*>(&window); preferences && choice < 50)
      preferences->popSize().setCurrentIndex(Any(4));
    else if (QWidget* control = QApplication::focusWidget(); control && choice < 95)
      QTest::keyClick(control, Qt::Key_Return);
    else
      window.resize(Any(900), Any(700));
  }

  void Act() {
    const Int32 choice = Any(100);
    if (WindowCount() == 0)
      app_.Event_Reopen();
    else if (choice < 60)
      WorkOn(WindowAt(0));
    else if (choice < 85)
      MenuBar1().Choose(AnyOf(commands));
    else if (choice < 90)
      QGuiApplication::clipboard()->setText(AnyOf(pasted));
    else if (choice < 96)
      WindowAt(WindowCount() - 1).Show();
    else
      Restart();
    while (WindowCount() > mostWindows) WindowAt(WindowCount() - 1).Close();
    while (TemplatesManager::Key.Ubound() > 10) TemplatesManager::Remove(0);
    HandleEvents();
    clock.Advance(Any(400));
    HandleEvents();
  }

  // Fills the toolkit's stores of what letters look like.
  void ShowAllLetters() {
    String letters = pasted[0];
    for (char c = ' '; c <= '~'; ++c) letters += c;
    for (const Int32 size : {11, 13, 24, 96}) {
      auto* window = new winSumlet;
      window->textInput().SetText(letters);
      window->textOutput().SetText(letters);
      window->ApplyTextSize(size);
      HandleEvents();
    }
    for (const char* command : commands) MenuBar1().Choose(command);
  }

  // What is in use while nothing is open.
  [[nodiscard]] static double BytesAtRest() {
    CloseAll();
    TemplatesManager::Load("\x01");
    QGuiApplication::clipboard()->clear();
    HandleEvents();
    return BytesInUse();
  }

  App app_;
  HookGuard questions_ = ShowDialog.Set([this](const MessageDialog&) { return static_cast<DialogButton>(Any(3)); });
  Int32 seed_ = qEnvironmentVariable("SUMLET_SOAK_SEED", "1").toInt();
  std::mt19937 random_{static_cast<unsigned>(seed_)};
};

TEST_F(Soak, MemoryStaysFlat) {
  constexpr int rests = 100;
  constexpr double mostGrowth = 512 << 10;  // bytes; the toolkit fills its stores of letters slowly
  const Int32 step = qEnvironmentVariable("SUMLET_SOAK_SECONDS", "300").toInt() * 1000 / rests;
  double first = 0, last = 0;  // bytes in use, the means of ten rests
  ShowAllLetters();
  for (int rest = 0; rest < rests; ++rest) {
    for (const Int32 end = clock.Now() + step; clock.Now() < end;) Act();
    const double bytes = BytesAtRest();
    if (rest / 10 == 0) first += bytes / 10;
    if (rest / 10 == 9) last += bytes / 10;
  }
  std::cout << "Seed " << seed_ << ", " << clock.Now() / 1000 << " s; bytes in use at first " << first << ", at last "
            << last << "\n";
  EXPECT_LT(last, first + mostGrowth);
}

}  // namespace
}  // namespace sumlet
