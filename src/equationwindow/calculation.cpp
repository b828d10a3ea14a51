// From typing to the result: a text change arms a timer, the timer calculates. The equation is always evaluated whole.
#include "engine/result_text.h"
#include "equationwindow/win_sumlet.h"
#include "persistence/preferences.h"

namespace sumlet {

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
  const String result = math->Evaluate();
  textOutput().SetText(ShownResult(*math, result));
  SyntaxColoring();
  ArrangeControls();
}

}  // namespace sumlet
