// Calculates, colours and arranges an equation window, and stores and restores it. A change of the text arms a timer,
// and the timer calculates. Each calculation evaluates the whole equation.
#include "equationwindow/win_sumlet.h"

#include <QEvent>
#include <QShowEvent>
#include <QString>
#include <optional>

#include "equationwindow/area_layout.h"
#include "equationwindow/closed_equations.h"
#include "equationwindow/line_colors.h"
#include "framework/text/bytes.h"
#include "framework/text/variant.h"
#include "framework/ui/placement.h"
#include "framework/ui/qt_text.h"
#include "persistence/key_list.h"
#include "persistence/preferences.h"
#include "persistence/record.h"

namespace sumlet {
namespace {

constexpr Int32 calculationDelay = 250;  // ms from the last change of the text
constexpr Int32 noticePeriod = 2000;     // ms, long enough for a screen reader to begin to speak

}  // namespace

Hook<void()> winSumlet::ScheduleSave;
Hook<void(Int32 steps)> winSumlet::StepTextSize;

winSumlet::winSumlet(bool visible) { Create(visible); }

void winSumlet::Layout() {
  setWindowTitle(QStringLiteral("Sumlet"));
  SetSizeLimits({smallestSize, smallestSize}, {32000, 32000});
  SetWidth(365);
  SetHeight(234);
  SetPlacement(Placement::Staggered);
}

void winSumlet::CreateControls() { _CreateControls0(); }

// Both areas extend one pixel beyond the window on each side, which hides their borders there.
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

  tmrCalculate_.SetPeriod(calculationDelay);
  tmrCalculate_.Action = [this](Timer& sender) { tmrCalculate_Action(sender); };
  tmrNotice_.SetPeriod(noticePeriod);
  tmrNotice_.Action = [this](Timer&) { Announce(textOutput().Text()); };
  tmrDelayToggleFullscreen_.Action = [this](Timer& sender) { tmrDelayToggleFullscreen_Action(sender); };

  TemplateSaver_.Saved = [this](const NameProviderDialog& sender) { TemplateSaver_Saved(sender); };
}

void winSumlet::Event_Open() {
  math = std::make_unique<MathClass>();
  ApplyTextSize(Preferences::TextSize);
  ShowLineValues(Preferences::ShowLineValues);
}

void winSumlet::Event_Resized() { ArrangeControls(); }

// Arming an armed timer restarts it, so that a burst of key strokes causes one calculation.
void winSumlet::textInput_TextChange(TextArea& /*sender*/) {
  if (Loading) return;
  tmrCalculate_.SetMode(TimerMode::Single);
  ScheduleSave();
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
  tmrNotice_.SetMode(TimerMode::Off);
  textInput().setAccessibleDescription(SpokenText(text));
}

void winSumlet::AnnounceTemporarily(std::string_view notice) {
  Announce(notice);
  tmrNotice_.SetMode(TimerMode::Single);
}

// A command that immediately follows a key applies to the text on the screen, not to the previous result. The timer
// would calculate again, replace RND values that the command has copied, and interrupt its notice.
void winSumlet::CalculateIfDue() {
  if (!IsCalculationDue()) return;
  tmrCalculate_.SetMode(TimerMode::Off);
  Calculate();
}

void winSumlet::ApplyTextSize(Int32 size) {
  TextSize = size;
  textInput_->SetTextSize(size);
  textOutput_->SetTextSize(size);
  ArrangeControls();
}

// Also applies TextSize, because a restored window sets it directly.
void winSumlet::SyntaxColoring() {
  const String text = textInput_->Text();
  if (text.empty()) return;
  std::optional<Int32> errorLine;
  if (math->ResultIsError()) errorLine = math->LastLineEvaluated;
  textInput_->SetTextSize(TextSize);
  textInput_->SetLineColors(LineColors(text, errorLine));
}

void winSumlet::ShowLineValues(bool shown) {
  if (shown == (valueDisplay_ != nullptr)) return;
  valueDisplay_.reset();
  if (!shown) return;
  valueDisplay_ = std::make_unique<ValueDisplay>(*textInput_, CommentColor);
  valueDisplay_->Clicked = [this](Int32 line) {
    CalculateIfDue();
    CopyValue(line, valueDisplay_->Values().ValueOf(line));
  };
  Calculate();
}

// A window that is built and filled before it first shows would otherwise be arranged after each step, and the width at
// which its result wraps is not known before it shows.
void winSumlet::ArrangeControls() {
  if (!isVisible()) return;
  textOutput_->SetScrollbarVertical(false);  // a scroll bar would narrow the lines that are counted
  const Int32 lines = textOutput_->LineNumAtCharPos(Len(textOutput_->Text()));
  const AreaLayout layout = LayOutAreas(Height(), textInput_->LineHeight(TextSize), lines);
  textOutput_->setGeometry(textOutput_->x(), layout.outputTop, textOutput_->width(), layout.outputHeight);
  textOutput_->SetScrollbarVertical(layout.outputScrolls);
  textInput_->setGeometry(textInput_->x(), layout.inputTop, textInput_->width(), layout.inputHeight);
}

// The desktop sends a spontaneous event when it shows a minimised window again, which is arranged already.
void winSumlet::showEvent(QShowEvent* event) {
  BaseWindow::showEvent(event);
  if (!event->spontaneous()) ArrangeControls();
}

// The desktop's font may change while the window is open.
void winSumlet::changeEvent(QEvent* event) {
  BaseWindow::changeEvent(event);
  if (event->type() == QEvent::FontChange && textOutput_ != nullptr) ArrangeControls();
}

// The window manager may have resized the window before it reports the new state, so this does not read the window's
// present bounds.
void winSumlet::StoreWindowedBounds() {
  const QRect bounds = WindowedBounds();
  NonFullscreenLeft = bounds.x();
  NonFullscreenTop = bounds.y();
  NonFullscreenWidth = bounds.width();
  NonFullscreenHeight = bounds.height();
}

void winSumlet::Event_FullScreen() { StoreWindowedBounds(); }

// A restored window enters full screen from the event loop, once it is on the screen. By then the window manager may be
// adding the frame, and the reported position may or may not include it. So this notes the bounds beforehand.
void winSumlet::delayToggleFullscreen() {
  restoredBounds_ = WindowedBounds();
  tmrDelayToggleFullscreen_.SetPeriod(10);
  tmrDelayToggleFullscreen_.SetMode(TimerMode::Single);
}

void winSumlet::tmrDelayToggleFullscreen_Action(Timer& /*sender*/) { ToggleFullScreen(restoredBounds_); }

// On quit the session is already saved, so leaving full screen here does not change the record.
bool winSumlet::Event_CancelClose(bool appQuitting) {
  if (!appQuitting) ClosedEquations::Add(*this);
  if (IsFullScreen()) ToggleFullScreen();
  return false;
}

void winSumlet::StoreRecord(KeyList& record) const {
  record.AddItem("size", Int32ToVariant(TextSize));
  record.AddItem("name", StringToVariant(FromTemplate));
  record.AddItem("equation", StringToVariant(EncodeURLComponent(textInput().Text())));
  const bool full = IsFullScreen();
  record.AddItem("fullscreen", BooleanToVariant(full));
  record.AddItem("left", Int32ToVariant(full ? NonFullscreenLeft : Left()));
  record.AddItem("top", Int32ToVariant(full ? NonFullscreenTop : Top()));
  record.AddItem("width", Int32ToVariant(full ? NonFullscreenWidth : Width()));
  record.AddItem("height", Int32ToVariant(full ? NonFullscreenHeight : Height()));
}

void winSumlet::RestoreFrom(const MyWindowManager::Record& record) {
  auto* window = new winSumlet(false);
  window->TextSize = record.GetInteger("size", window->TextSize);
  window->SetLeft(record.GetInteger("left", 20));
  window->SetTop(record.GetInteger("top", 20));
  window->SetWidth(record.GetInteger("width", smallestSize));
  window->SetHeight(record.GetInteger("height", smallestSize));
  if (record.GetBoolean("fullscreen", false)) window->delayToggleFullscreen();
  window->SetEquation(record.GetString("name", {}), DecodeURLComponent(record.GetString("equation", {})));
  window->Show();
}

String winSumlet::GetFirstLine() const {
  const String text = textInput().Text();
  LineReader lines(text);
  for (std::string_view line; lines.Next(line);) {
    if (const std::string_view trimmed = Trimmed(line); !trimmed.empty()) return String(trimmed);
  }
  return {};
}

}  // namespace sumlet
