#include "equationwindow/win_sumlet.h"

namespace sumlet {
namespace {
constexpr Int32 defaultTextSize = 13;  // points
}

std::function<void()> winSumlet::ScheduleSave;

winSumlet::winSumlet() { Create(); }

void winSumlet::Layout() {
  setWindowTitle(QStringLiteral("Sumlet"));
  SetSizeLimits({64, 64}, {32000, 32000});
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
  AddControl(*textOutput_, {-1, 201, 367, 35}, Lock::Left | Lock::Right | Lock::Bottom);

  tmrCalculate_.SetPeriod(250);
  tmrCalculate_.Action = [this](Timer& sender) { tmrCalculate_Action(sender); };
}

void winSumlet::Event_Open() {
  math = std::make_unique<MathClass>();
  ApplyTextSize(defaultTextSize);
}

void winSumlet::Event_Resized() { ArrangeControls(); }

void winSumlet::ApplyTextSize(Int32 size) {
  TextSize = size;
  textInput_->SetTextSize(size);
  textOutput_->SetTextSize(size);
  ArrangeControls();
}

// To come: comment lines grey, the failed line red.
void winSumlet::SyntaxColoring() {}

// To come: the result area as high as its text. Until then both areas follow the window by their locks.
void winSumlet::ArrangeControls() {}

}  // namespace sumlet
