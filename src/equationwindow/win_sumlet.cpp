#include "equationwindow/win_sumlet.h"

#include "persistence/preferences.h"

namespace sumlet {

std::function<void()> winSumlet::ScheduleSave;
std::function<void(Int32 steps)> winSumlet::StepTextSize;

winSumlet::winSumlet(bool visible) { Create(visible); }

void winSumlet::Layout() {
  setWindowTitle(QStringLiteral("Sumlet"));
  SetSizeLimits({smallestSize, smallestSize}, {32000, 32000});
  SetWidth(365);
  SetHeight(234);
  SetPlacement(Placement::Staggered);
}

void winSumlet::CreateControls() { _CreateControls0(); }

// Both areas stand one pixel outside the window at its edges, so that their borders are out of sight there.
void winSumlet::_CreateControls0() {
  textInput_ = new TextArea(Content());
  textInput_->setAccessibleName(tr("Equation"));
  textInput_->TextChange = [this](TextArea& sender) { textInput_TextChange(sender); };
  AddControl(*textInput_, {-1, -1, 367, 199}, Lock::Left | Lock::Top | Lock::Right | Lock::Bottom);

  textOutput_ = new TextArea(Content());
  textOutput_->setAccessibleName(tr("Result"));
  textOutput_->SetReadOnly(true);
  textOutput_->SetTypingReceiver(*textInput_);
  AddControl(*textOutput_, {-1, 201, 367, 35}, Lock::Left | Lock::Right | Lock::Bottom);
  for (const TextArea* area : {textInput_, textOutput_}) area->viewport()->installEventFilter(this);

  tmrCalculate_.SetPeriod(250);
  tmrCalculate_.Action = [this](Timer& sender) { tmrCalculate_Action(sender); };
  tmrDelayToggleFullscreen_.Action = [this](Timer& sender) { tmrDelayToggleFullscreen_Action(sender); };

  TemplateSaver_.Saved = [this](const NameProviderDialog& sender) { TemplateSaver_Saved(sender); };
}

void winSumlet::Event_Open() {
  math = std::make_unique<MathClass>();
  ApplyTextSize(Preferences::TextSize);
  ShowLineValues(Preferences::ShowLineValues);
}

void winSumlet::Event_Resized() { ArrangeControls(); }

}  // namespace sumlet
