// From typing to the result: a text change arms a timer, the timer calculates. The equation is always evaluated whole.
#include "engine/result_text.h"
#include "equationwindow/win_sumlet.h"
#include "framework/ui/qt_text.h"
#include "persistence/preferences.h"

namespace sumlet {
namespace {

// Maximum length of the accessible description, so that a long result does not flood the session bus.
constexpr Int32 spokenLength = 1000;  // characters

}  // namespace

// Arming the armed timer restarts it: a burst of key strokes gives one calculation, 250 ms after the last of them.
void winSumlet::textInput_TextChange(TextArea& /*sender*/) {
  if (Loading) return;
  tmrCalculate_.SetPeriod(250);
  tmrCalculate_.SetMode(TimerMode::Single);
  if (Preferences::RememberEquations && ScheduleSave) ScheduleSave();
}

void winSumlet::tmrCalculate_Action(Timer& /*sender*/) { Calculate(); }

void winSumlet::SetEquation(std::string_view name, std::string_view text) {
  Loading = true;
  FromTemplate = name;
  textInput().SetText(text);
  Loading = false;
  Calculate();
}

void winSumlet::Calculate() {
  math->equationText = textInput().Text();
  if (valueDisplay_ == nullptr)
    math->Evaluate();
  else
    valueDisplay_->SetValues(LineValues(*math));
  ShowResult();
}

void winSumlet::ShowResult() {
  const String result = ShownResult(*math, math->Result);
  textOutput().SetText(result);
  Announce(result);
  SyntaxColoring();
  ArrangeControls();
}

// Sets the accessible description of the equation, because the focus stays there and a screen reader would not read the
// strip. Qt notifies it only if the description changes.
void winSumlet::Announce(std::string_view text) {
  textInput().setAccessibleDescription(ToQString(sumlet::Left(text, spokenLength)));
}

}  // namespace sumlet
