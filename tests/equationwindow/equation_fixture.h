// An equation window, and how to fill it by program.
#pragma once

#include "equationwindow/win_sumlet.h"
#include "framework/ui/window_fixture.h"

namespace sumlet {

class EquationFixture : public WindowFixture {
 protected:
  EquationFixture() {
    winSumlet::ScheduleSave = [this] { ++saves; };
    QCoreApplication::processEvents();
  }
  void Fill(std::string_view text) const {
    window->Loading = true;
    window->textInput().SetText(text);
    window->Loading = false;
    window->Calculate();
  }
  [[nodiscard]] String Result() const { return window->textOutput().Text(); }

  int saves = 0;
  QPointer<winSumlet> window = new winSumlet;
};

}  // namespace sumlet
