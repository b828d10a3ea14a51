#include "equationwindow/win_sumlet.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "framework/ui/manual_clock.h"

namespace sumlet {
namespace {

class CountingMath final : public MathClass {
 public:
  explicit CountingMath(int* count) : count_(count) {}
  String Evaluate() override {
    ++*count_;
    return MathClass::Evaluate();
  }

 private:
  int* count_;
};

class WinSumlet : public testing::Test {
 protected:
  WinSumlet() {
    window->math = std::make_unique<CountingMath>(&calculations);
    winSumlet::ScheduleSave = [this] { ++saves; };
    QCoreApplication::processEvents();
  }
  ~WinSumlet() override {
    winSumlet::ScheduleSave = nullptr;
    if (window) window->Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  // What the window does for whoever fills it by program.
  void Fill(std::string_view text) {
    window->Loading = true;
    window->textInput().SetText(text);
    window->Loading = false;
    window->Calculate();
  }
  [[nodiscard]] String Result() const { return window->textOutput().Text(); }

  int calculations = 0;
  int saves = 0;
  ManualClock clock;
  QPointer<winSumlet> window = new winSumlet;
};

TEST_F(WinSumlet, OpensEmptyAndReadyToType) {
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->windowTitle(), "Sumlet");
  EXPECT_EQ(window->textInput().Text() + Result() + window->FromTemplate, "");
  EXPECT_EQ(window->tmrCalculate().Mode(), TimerMode::Off);
  EXPECT_EQ(window->tmrCalculate().Period(), 250);
  EXPECT_EQ(window->textInput().accessibleName(), "Equation");
  EXPECT_EQ(window->textOutput().accessibleName(), "Result");
  EXPECT_EQ(QApplication::focusWidget(), &window->textInput());
  EXPECT_EQ(window->textInput().font().pointSize(), 13);
  EXPECT_EQ(window->textOutput().font().pointSize(), 13);
}

TEST_F(WinSumlet, AreasStandOnePixelOutside) {
  for (const QSize size : {QSize(365, 234), QSize(500, 400), QSize(64, 64)}) {
    window->SetWidth(size.width());
    window->SetHeight(size.height());
    const QRect input = window->textInput().geometry();
    const QRect output = window->textOutput().geometry();
    EXPECT_EQ(input.topLeft(), QPoint(-1, -1));
    EXPECT_EQ(input.width(), size.width() + 2);
    EXPECT_EQ(output.top(), input.top() + input.height() + 2);
    EXPECT_EQ(QRect(output.bottomLeft(), output.bottomRight()), QRect(-1, size.height(), size.width() + 2, 1));
  }
  window->hide();
  window->SetWidth(32000);
  window->SetHeight(32000);
  EXPECT_EQ(QSize(window->Width(), window->Height()), QSize(16384, 4096)) << "its picture fits into memory";
}

TEST_F(WinSumlet, ShowsOneResult) {
  const struct {
    const char* equation;
    const char* result;
  } rows[] = {
      {"x=2\nx*21", "42"},
      {"1\n2\n3", "3"},
      {"foo", "\"foo\" Error: Variable Unknown"},
      {"(1", "Error: Unmatched Parenthesis"},
      {"x=5\n(1", "\"x\" Error: Unmatched Parenthesis"},
      {"  \n# a note\n", ""},
      {"", ""},
  };
  for (const auto& row : rows) {
    Fill(row.equation);
    EXPECT_EQ(Result(), row.result) << row.equation;
  }
  clock.Advance(1000);
  EXPECT_EQ(calculations, static_cast<int>(std::size(rows))) << "a text set by program arms no timer";
  EXPECT_EQ(saves, 0);
}

TEST_F(WinSumlet, CalculatesOnceTypingHasStopped) {
  for (const char key : std::string("1+2+3+4+56")) {
    clock.Advance(100);
    QTest::keyClick(&window->textInput(), key);
  }
  EXPECT_EQ(saves, 10);
  clock.Advance(249);
  EXPECT_EQ(calculations, 0);
  clock.Advance(1);
  EXPECT_EQ(Result(), "66");
  clock.Advance(10000);
  EXPECT_EQ(calculations, 1);

  // a calculation by program leaves the armed timer as it is
  QTest::keyClick(&window->textInput(), Qt::Key_1);
  window->Calculate();
  EXPECT_EQ(Result(), "571");
  clock.Advance(250);
  EXPECT_EQ(calculations, 3);
}

TEST_F(WinSumlet, ClosesWithTheTimerArmed) {
  QTest::keyClick(&window->textInput(), Qt::Key_1);
  EXPECT_TRUE(window->Close());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
  clock.Advance(250);
  EXPECT_EQ(calculations, 0);
}

}  // namespace
}  // namespace sumlet
