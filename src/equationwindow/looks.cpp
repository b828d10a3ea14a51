// The looks of an equation window: the size of its text, the colours and values of its lines, and how high its areas
// are.
#include <QEvent>

#include "equationwindow/area_layout.h"
#include "equationwindow/line_roles.h"
#include "equationwindow/win_sumlet.h"

namespace sumlet {
namespace {

constexpr QColor commentColor(0x7F, 0x7F, 0x7F);
constexpr QColor errorColor(0xFF, 0x00, 0x00);

// Invalid for an ordinary line, which is black like all text.
QColor ColorOf(LineRole role) {
  switch (role) {
    case LineRole::Comment:
      return commentColor;
    case LineRole::Error:
      return errorColor;
    case LineRole::Ordinary:
      break;
  }
  return {};
}

}  // namespace

void winSumlet::ApplyTextSize(Int32 size) {
  TextSize = size;
  textInput_->SetTextSize(size);
  textOutput_->SetTextSize(size);
  ArrangeControls();
}

// The window's text size goes with the colours: a restored window has got its own without ApplyTextSize.
void winSumlet::SyntaxColoring() {
  const String text = textInput_->Text();
  if (text.empty()) return;
  std::optional<Int32> errorLine;
  if (math->ResultIsError()) errorLine = math->LastLineEvaluated;
  std::vector<QColor> colors;
  for (const LineRole role : LineRoles(text, errorLine)) colors.push_back(ColorOf(role));
  textInput_->SetTextSize(TextSize);
  textInput_->SetLineColors(colors);
}

void winSumlet::ShowLineValues(bool shown) {
  if (shown == (valueDisplay_ != nullptr)) return;
  valueDisplay_.reset();
  if (!shown) return;
  valueDisplay_ = std::make_unique<ValueDisplay>(*textInput_, commentColor);
  valueDisplay_->Clicked = [this](Int32 line) {
    CalculateIfDue();
    CopyValue(line, valueDisplay_->Values().ValueOf(line));
  };
  Calculate();
}

void winSumlet::ArrangeControls() {
  textOutput_->SetScrollbarVertical(false);  // a bar, while it stands, takes room from the lines that are counted
  const Int32 lines = textOutput_->LineNumAtCharPos(Len(textOutput_->Text()));
  const AreaLayout layout = LayOutAreas(Height(), textInput_->LineHeight(TextSize), lines);
  textOutput_->setGeometry(textOutput_->x(), layout.outputTop, textOutput_->width(), layout.outputHeight);
  textOutput_->SetScrollbarVertical(layout.outputScrolls);
  textInput_->setGeometry(textInput_->x(), layout.inputTop, textInput_->width(), layout.inputHeight);
}

// The areas have the desktop's font, which may change while the window is open.
void winSumlet::changeEvent(QEvent* event) {
  BaseWindow::changeEvent(event);
  if (event->type() == QEvent::FontChange && textOutput_ != nullptr) ArrangeControls();
}

}  // namespace sumlet
