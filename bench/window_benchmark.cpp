// The time of a key stroke in a window, by the number of its lines: from the key to the painted character, and from the
// timer's end to the painted result. Then the time by the number of windows of 100 lines: creating one more, restoring
// a session, and saving it. Painted means drawn by the toolkit; the desktop's time is not included.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "equationwindow/win_sumlet.h"
#include "framework/text/text.h"
#include "persistence/preferences.h"
#include "shell/menus.h"

namespace sumlet {
namespace {

// Every fifth line is a comment. The caret is at the end of a comment in the middle, so that typing there causes no
// error and all lines are evaluated.
winSumlet& OpenWindow(std::int64_t lines) {
  std::string text;
  for (std::int64_t i = 0; i < lines; ++i) {
    text += i % 5 == 0 ? "# note\n" : "x=(3.5+" + std::to_string(i) + ")*2\n";
  }
  auto* window = new winSumlet;
  window->SetEquation({}, text);
  QTextCursor caret = window->textInput().textCursor();
  const QTextBlock middle = window->textInput().document()->findBlockByNumber(static_cast<int>(lines / 10 * 5));
  caret.setPosition(middle.position() + middle.length() - 1);
  window->textInput().setTextCursor(caret);
  QCoreApplication::processEvents();
  return *window;
}

void CloseWindow(winSumlet& window) {
  window.Close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void KeyToCharacter(benchmark::State& state) {
  winSumlet& window = OpenWindow(state.range(0));
  for (auto _ : state) {
    QTest::keyClick(&window.textInput(), Qt::Key_1);
    window.textInput().viewport()->repaint();
  }
  CloseWindow(window);
}
BENCHMARK(KeyToCharacter)->Arg(10)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->Iterations(50);

void TimerToResult(benchmark::State& state, bool showsValues) {
  winSumlet& window = OpenWindow(state.range(0));
  window.ShowLineValues(showsValues);
  for (auto _ : state) {
    state.PauseTiming();
    QTest::keyClick(&window.textInput(), Qt::Key_1);
    state.ResumeTiming();
    window.Calculate();
    window.repaint();
  }
  CloseWindow(window);
}
BENCHMARK_CAPTURE(TimerToResult, , false)
    ->Arg(10)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(50);
BENCHMARK_CAPTURE(TimerToResult, with line values, true)
    ->Arg(10)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(50);

// One frame of a window 1000 pixels high, scrolled by a line, of 10,000 lines.
void ScrollByLine(benchmark::State& state, bool showsValues) {
  winSumlet& window = OpenWindow(10'000);
  window.SetHeight(1000);
  window.ShowLineValues(showsValues);
  QScrollBar& bar = *window.textInput().verticalScrollBar();
  for (auto _ : state) {
    bar.setValue((bar.value() + 1) % bar.maximum());
    window.textInput().viewport()->repaint();
  }
  CloseWindow(window);
}
BENCHMARK_CAPTURE(ScrollByLine, , false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ScrollByLine, with line values, true)->Unit(benchmark::kMillisecond);

// The calculation alone.
void Engine(benchmark::State& state) {
  winSumlet& window = OpenWindow(state.range(0));
  MathClass math(window.textInput().Text());
  CloseWindow(window);
  for (auto _ : state) benchmark::DoNotOptimize(math.Evaluate());
}
BENCHMARK(Engine)->Arg(10)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

// The colouring alone, after an edit that changes the colour of one line.
void Coloring(benchmark::State& state) {
  winSumlet& window = OpenWindow(state.range(0));
  std::vector<QColor> colors(static_cast<std::size_t>(state.range(0)));
  bool odd = false;
  for (auto _ : state) {
    colors[colors.size() / 2] = (odd = !odd) ? QColor(Qt::red) : QColor();
    window.textInput().SetLineColors(colors);
  }
  CloseWindow(window);
}
BENCHMARK(Coloring)->Arg(10)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

// The resident memory of the process, in kilobytes.
double ResidentMemory() {
  long pages = 0;
  std::FILE* file = std::fopen("/proc/self/statm", "r");
  if (file == nullptr || std::fscanf(file, "%*d %ld", &pages) != 1) pages = 0;
  if (file != nullptr) std::fclose(file);
  return static_cast<double>(pages * sysconf(_SC_PAGESIZE)) / 1024;
}

std::vector<const MyWindowManager::StoredWindow*> StoredWindows() {
  std::vector<const MyWindowManager::StoredWindow*> windows;
  for (Int32 i = 0; i < WindowCount(); ++i)
    windows.push_back(dynamic_cast<const MyWindowManager::StoredWindow*>(&WindowAt(i)));
  return windows;
}

void CloseAllWindows() {
  while (WindowCount() > 0) WindowAt(0).Close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

String StoredSession(std::int64_t windows) {
  for (std::int64_t i = 0; i < windows; ++i) OpenWindow(100);
  return MyWindowManager::Store();
}

void NewWindow(benchmark::State& state) {
  (new winSumlet)->repaint();
  const double before = ResidentMemory();
  for (auto _ : state) (new winSumlet)->repaint();
  state.counters["KiB"] = (ResidentMemory() - before) / static_cast<double>(state.iterations());
  CloseAllWindows();
}
BENCHMARK(NewWindow)->Unit(benchmark::kMillisecond)->Iterations(200);

void RestoreSession(benchmark::State& state) {
  const String session = StoredSession(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    CloseAllWindows();
    state.ResumeTiming();
    MyWindowManager::Load(session);
    QCoreApplication::processEvents();
  }
  if (WindowCount() != state.range(0)) state.SkipWithError("windows are missing");
  CloseAllWindows();
}
BENCHMARK(RestoreSession)->Arg(3)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(3);

// Composing the records of all windows, without writing a file.
void StoreSession(benchmark::State& state) {
  StoredSession(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(MyWindowManager::Store());
  CloseAllWindows();
}
BENCHMARK(StoreSession)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

// How long a pause in typing blocks the event thread. A background thread flushes the file.
void SaveRecovery(benchmark::State& state) {
  StoredSession(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    Preferences::FinishSaving();
    state.ResumeTiming();
    if (!Preferences::SaveRecovery()) state.SkipWithError("the previous write is under way");
  }
  Preferences::FinishSaving();
  CloseAllWindows();
}
BENCHMARK(SaveRecovery)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(20)->UseRealTime();

// How long a save blocks it while a recovery file exists.
void SaveSession(benchmark::State& state) {
  StoredSession(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    Preferences::FinishSaving();
    if (!Preferences::SaveRecovery()) state.SkipWithError("the previous write is under way");
    Preferences::FinishSaving();
    state.ResumeTiming();
    Preferences::Save();
  }
  Preferences::FinishSaving();
  CloseAllWindows();
}
BENCHMARK(SaveSession)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(20)->UseRealTime();

}  // namespace
}  // namespace sumlet

int main(int argc, char** argv) {
  const QTemporaryDir settings;
  qputenv("XDG_DATA_HOME", settings.path().toUtf8());
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const auto menus = sumlet::AttachMenus.Set([](sumlet::Window& window) { sumlet::MenuBar1().AttachTo(window); });
  const auto windows = sumlet::MyWindowManager::WindowList.Set(sumlet::StoredWindows);
  sumlet::MyWindowManager::RegisterSection();
  sumlet::MyWindowManager::RegisterRestorer({"equation", sumlet::winSumlet::RestoreFrom});
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
