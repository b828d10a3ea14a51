// Works the whole program at random by a clock that the test moves, and looks whether its memory stays as it is.
//
// SUMLET_SOAK_SECONDS is how much time passes, of the moved clock (300); SUMLET_SOAK_SEED begins another series.
#include <malloc.h>

#include <QClipboard>
#include <QPixmapCache>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numeric>
#include <random>

#include "equationwindow/win_sumlet.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/menus.h"
#include "shell/win_preferences.h"
#include "templates/templates_manager.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer) && !defined(__SANITIZE_ADDRESS__)
#define __SANITIZE_ADDRESS__
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // not every compiler brings the header for it
#endif

namespace sumlet {
namespace {

std::size_t BytesInUse() {
#if defined(__SANITIZE_ADDRESS__)
  return __sanitizer_get_current_allocated_bytes();
#else
  const auto heap = mallinfo2();
  return heap.uordblks + heap.hblkhd;
#endif
}

Int32 NumberFromEnvironment(const char* name, Int32 fallback) {
  const char* value = std::getenv(name);
  return value == nullptr ? fallback : std::atoi(value);
}

// What is typed and pasted: pieces of sound and of hopeless equations.
constexpr const char* typed[] = {"1",    "42",      ".5",    "x",       "=",   "+",   "-",  "*",   "/",
                                 "^",    "(",       ")",     "|",       ",",   "\n",  "\n", "x=2", "sin(",
                                 "max(", "frac(",   " mod ", "# note",  "//",  "foo", "\"", "--",  "2(3)",
                                 "y=x",  "\ny+2\n", "1e9",   "sqrt(2)", "3--", "pi"};
constexpr const char* pasted[] = {"\u03C0 \u00A0\U0001D70B", "x=1\ny=x/3\ny*3", "# \u20AC\r\n6*7",
                                  "1+1+1+1+1+1+1+1+1+1+1+1"};
constexpr Int32 textSizes[] = {11, 13, 24};
constexpr const char* commands[] = {
    "FileNewWindow",  "FileNewWindow",      "FileNew",    "FileCLose",  "FileCLose",      "FileImport",
    "FileExport",     "FileSaveAsTemplate", "EditUndo",   "EditCut",    "EditCopy",       "EditPaste",
    "EditClear",      "EditSelectAll",      "AppleAbout", "FullScreen", "WindowMinimize", "WindowBringAlltoFront",
    "HelpSumletHelp", "ApplePreferences"};

// A program as main.cpp puts it together, and a user who does whatever comes to mind.
class Soak : public WindowFixture {
 protected:
  static constexpr Int32 mostWindows = 8;

  Soak() {
    TemplatesManager::RegisterSection();
    MyWindowManager::RegisterSection();
    MyWindowManager::SetWindowList([] {
      std::vector<const MyWindowManager::StoredWindow*> windows;
      for (Int32 i = 0; i < WindowCount(); ++i)
        windows.push_back(dynamic_cast<const MyWindowManager::StoredWindow*>(&WindowAt(i)));
      return windows;
    });
    MyWindowManager::RegisterRestorer({"template", [](const auto&) { winTemplates::Instance().Show(); }});
    MyWindowManager::RegisterRestorer({"equation", winSumlet::RestoreFrom});
    winSumlet::ScheduleSave = [this] { app_.ScheduleSave(); };
    winTemplates::OpenEquation = App::OpenEquation;
    SetMenuAttacher([](Window& window) { MenuBar1().AttachTo(window); });
    SetMessageHandler([this](std::string_view) { ++alerts_; });
    SetDialogHandler([this](const MessageDialog&) { return static_cast<DialogButton>(Any(3)); });
    const FolderItem file(folder.filePath("exported.txt").toStdString());
    SetFileDialogs({[file](const OpenDialog&) {
                      return std::vector{file, file};
                    },
                    [file](const SaveAsDialog&, Window&) { return file; }});
    QPixmapCache::setCacheLimit(0);  // it would fill up slowly
    app_.BindMenuHandlers();
    app_.Event_Open();
  }

  [[nodiscard]] Int32 Any(std::size_t count) { return static_cast<Int32>(random_() % count); }
  template <std::size_t count>
  [[nodiscard]] const char* AnyOf(const char* const (&texts)[count]) {
    return texts[Any(count)];
  }

  static void HandleEvents() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void CloseAll() {
    while (WindowCount() > 0) WindowAt(0).Close(true);
    HandleEvents();
  }

  void Type() {
    if (WindowCount() == 0) return;
    Window& window = WindowAt(Any(static_cast<std::size_t>(WindowCount())));
    if (auto* equation = dynamic_cast<winSumlet*>(&window)) {
      if (equation->textInput().document()->characterCount() > 400) equation->textInput().selectAll();
      for (const char* key = AnyOf(typed); *key != '\0'; ++key)
        *key == '\n' ? QTest::keyClick(&equation->textInput(), Qt::Key_Return)
                     : QTest::keyClick(&equation->textInput(), *key);
    } else {
      QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &window, Qt::Key_Return);
    }
  }

  // As from the menu, where what is disabled cannot be chosen.
  static void Command(const char* name) {
    MenuBar1().Update();
    MenuBar1().Item(name).trigger();
  }

  void Resize() {
    if (WindowCount() == 0) return;
    WindowAt(0).SetWidth(Any(900));
    WindowAt(0).SetHeight(Any(700));
    if (auto* equation = dynamic_cast<winSumlet*>(&WindowAt(0)))
      equation->ApplyTextSize(textSizes[Any(std::size(textSizes))]);
  }

  // Quits and starts again, as far as that goes without another process.
  void Restart() {
    app_.Event_CancelClose();
    CloseAll();
    Preferences::Load();
  }

  void ChangePreferences() {
    winPreferences& window = winPreferences::Instance();
    window.Show();
    window.popSize().setCurrentText(QString::number(textSizes[Any(std::size(textSizes))]));
    window.chkRestoreEquations().setChecked(Any(4) > 0);
  }

  void Act() {
    const Int32 choice = Any(100);
    if (choice < 55)
      Type();
    else if (choice < 80)
      Command(AnyOf(commands));
    else if (choice < 86)
      QGuiApplication::clipboard()->setText(AnyOf(pasted));
    else if (choice < 90)
      Resize();
    else if (choice < 93)
      WindowCount() > 0 ? WindowAt(WindowCount() - 1).Show() : app_.Event_Reopen();
    else if (choice < 95)
      ChangePreferences();
    else if (choice < 97)
      Preferences::Save();
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
    String letters;
    for (char c = ' '; c <= '~'; ++c) letters += c;
    for (const char* text : pasted) letters += text;
    for (const Int32 size : textSizes) {
      auto* window = new winSumlet;
      window->textInput().SetText(letters);
      window->textOutput().SetText(letters);
      window->ApplyTextSize(size);
      HandleEvents();
    }
    for (const char* command : commands) Command(command);
    CloseAll();
  }

  // What is in use while nothing is open.
  [[nodiscard]] double BytesAtRest() {
    CloseAll();
    TemplatesManager::Load("\x01");
    QGuiApplication::clipboard()->clear();
    HandleEvents();
    return static_cast<double>(BytesInUse());
  }

  static double Mean(const double* values, std::size_t count) {
    return std::accumulate(values, values + count, 0.0) / static_cast<double>(count);
  }

  App app_;
  Int32 seed_ = NumberFromEnvironment("SUMLET_SOAK_SEED", 1);
  std::mt19937 random_{static_cast<unsigned>(seed_)};
  Int32 alerts_ = 0;
};

TEST_F(Soak, MemoryStaysFlat) {
  constexpr std::size_t rests = 100;
  constexpr double mostGrowth = 512 << 10;  // bytes; the toolkit fills its stores of letters slowly
  const Int32 step = NumberFromEnvironment("SUMLET_SOAK_SECONDS", 300) * 1000 / static_cast<Int32>(rests);
  std::vector<double> bytes;
  ShowAllLetters();
  for (std::size_t rest = 0; rest < rests; ++rest) {
    for (const Int32 end = clock.Now() + step; clock.Now() < end;) Act();
    bytes.push_back(BytesAtRest());
  }
  const double first = Mean(bytes.data(), rests / 10);
  const double last = Mean(bytes.data() + rests - rests / 10, rests / 10);
  std::cout << "Seed " << seed_ << ", " << clock.Now() / 1000 << " s, " << alerts_ << " alerts; bytes in use at first "
            << first << ", at last " << last << "\n";
  EXPECT_LT(last, first + mostGrowth);
}

}  // namespace
}  // namespace sumlet
