// The road of a key stroke through a window, by the lines of its text: from the key to the painted character, and from
// the timer's end to the painted result. Painted means drawn by the toolkit; the desktop's part is not in it.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <QTextBlock>
#include <string>

#include "equationwindow/win_sumlet.h"

namespace sumlet {
namespace {

// Every fifth line is a comment. The caret stands in the middle.
winSumlet& OpenWindow(std::int64_t lines) {
  std::string text;
  for (std::int64_t i = 0; i < lines; ++i) {
    text += i % 5 == 0 ? "# note\n" : "x=(3.5+" + std::to_string(i) + ")*2\n";
  }
  auto* window = new winSumlet;
  window->Loading = true;
  window->textInput().SetText(text);
  window->Loading = false;
  window->Calculate();
  QTextCursor caret = window->textInput().textCursor();
  caret.setPosition(window->textInput().document()->findBlockByNumber(static_cast<int>(lines / 2)).position());
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

void TimerToResult(benchmark::State& state) {
  winSumlet& window = OpenWindow(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    QTest::keyClick(&window.textInput(), Qt::Key_1);
    state.ResumeTiming();
    window.Calculate();
    window.repaint();
  }
  CloseWindow(window);
}
BENCHMARK(TimerToResult)->Arg(10)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->Iterations(50);

// The part of it that colours, after an edit that changes the colour of one line.
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

}  // namespace
}  // namespace sumlet

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
