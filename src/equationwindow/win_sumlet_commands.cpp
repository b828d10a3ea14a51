// The commands of an equation window: its menu items, and the mouse actions that its text areas do not handle.
#include <QEvent>
#include <QFileInfo>
#include <QIODevice>
#include <QMouseEvent>
#include <QPointer>
#include <QSaveFile>
#include <QString>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QWheelEvent>

#include "engine/language.h"
#include "equationwindow/value_text.h"
#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/file/folder_item.h"
#include "framework/text/numbers.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/menu_bar.h"
#include "framework/ui/qt_text.h"
#include "templates/templates_manager.h"

namespace sumlet {
namespace {

// Returns the error, or an empty text on success. Replaces an existing file completely or not at all.
QString WriteText(const QString& path, const String& text) {
  QSaveFile file(path);
  file.setDirectWriteFallback(true);
  const auto size = static_cast<qint64>(text.size());
  const bool written = file.open(QIODevice::WriteOnly) && file.write(text.data(), size) == size && file.commit();
  return written ? QString() : file.errorString();
}

}  // namespace

void winSumlet::AddMenuHandlers() {
  BindMenuHandler("FileSaveAsTemplate", [this] { return _FileSaveAsTemplate_Action(); });
  BindMenuHandler("FileExport", [this] { return _FileExport_Action(); });
  BindMenuHandler("EditCopyResult", [this] { return _EditCopyResult_Action(); });
  BindMenuHandler("EditGoToError", [this] { return _EditGoToError_Action(); });
  BindMenuHandler("EditCopyLineValue", [this] { return _EditCopyLineValue_Action(); });
  BindMenuHandler("EditCopyWithValues", [this] { return _EditCopyWithValues_Action(); });
}

void winSumlet::Event_EnableMenuItems(MenuBar& menuBar) {
  if (!Trim(textInput().Text()).empty()) {
    menuBar.Enable("FileSaveAsTemplate");
    menuBar.Enable("EditCopyWithValues");
  }
  if (LineMayHaveValue(textInput().textCursor().blockNumber())) menuBar.Enable("EditCopyLineValue");
  if (IsCalculationDue() || !textOutput().Text().empty()) menuBar.Enable("EditCopyResult");
  if (IsCalculationDue() || math->ResultIsError()) menuBar.Enable("EditGoToError");
}

bool winSumlet::_EditCopyResult_Action() {
  CalculateIfDue();
  if (const String result = textOutput().Text(); !result.empty()) SetClipboardText(result);
  return true;
}

bool winSumlet::_EditGoToError_Action() {
  CalculateIfDue();
  if (!math->ResultIsError()) return true;
  textInput().setFocus();
  textInput().MoveCaretToLineEnd(math->LastLineEvaluated);
  return true;
}

// Whether a line, 0-based, has a value or may have one after the calculation that is due. Does not evaluate.
bool winSumlet::LineMayHaveValue(Int32 line) const {
  const String text = FromQString(textInput().document()->findBlockByNumber(line).text());
  const std::string_view trimmed = Trimmed(text);
  if (trimmed.empty() || IsComment(trimmed)) return false;
  return IsCalculationDue() || !math->ResultIsError() || line < math->LastLineEvaluated;
}

// Returns the values of the present text. Calculates once more if the window shows no values.
LineValues winSumlet::CurrentValues() {
  if (valueDisplay_ != nullptr) {
    CalculateIfDue();
    return valueDisplay_->Values();
  }
  tmrCalculate_.SetMode(TimerMode::Off);
  math->equationText = textInput().Text();
  LineValues values(*math);
  ShowResult();
  return values;
}

void winSumlet::CopyValue(Int32 line, std::string_view value) {
  if (value.empty()) return;
  SetClipboardText(value);
  AnnounceTemporarily("Copied " + String(value));
  if (valueDisplay_ != nullptr) valueDisplay_->Flash(line, line);
}

bool winSumlet::_EditCopyLineValue_Action() {
  const Int32 line = textInput().textCursor().blockNumber();
  const LineValues values = CurrentValues();
  CopyValue(line, values.ValueOf(line));
  return true;
}

// A selection that ends at the beginning of a line does not include that line.
bool winSumlet::_EditCopyWithValues_Action() {
  const QTextCursor selection = textInput().textCursor();
  const QTextDocument& document = *textInput().document();
  Int32 first = 0;
  Int32 last = document.blockCount() - 1;
  if (selection.hasSelection()) {
    first = document.findBlock(selection.selectionStart()).blockNumber();
    last = document.findBlock(selection.selectionEnd() - 1).blockNumber();
  }
  const LineValues values = CurrentValues();
  SetClipboardText(TextWithValues(math->equationText, values, first, last));
  const Int32 count = last - first + 1;
  AnnounceTemporarily("Copied " + Str(count) + (count == 1 ? " line" : " lines") + " with values");
  if (valueDisplay_ != nullptr) valueDisplay_->Flash(first, last);
  return true;
}

bool winSumlet::_FileExport_Action() {
  const QPointer<winSumlet> self = this;
  SaveAsDialog dialog;
  dialog.SuggestedFileName = FromTemplate.empty() ? "Untitled Equation.txt" : FromTemplate + ".txt";
  const std::optional<FolderItem> file = dialog.ShowModalWithin(*this);
  if (!file || !self) return true;
  const QString path = QString::fromStdString(file->Path().string());
  const QString problem = WriteText(path, textInput().Text());
  if (!problem.isEmpty()) {
    MsgBox("The equation could not be exported to \"" + FromQString(QFileInfo(path).fileName()) +
           "\": " + FromQString(problem));
  }
  return true;
}

bool winSumlet::_FileSaveAsTemplate_Action() {
  TemplateSaver_.Text = FromTemplate.empty() ? "Untitled Template" : FromTemplate;
  TemplateSaver_.Prompt = "Provide a name for the Template:";
  TemplateSaver_.ShowWithin(*this);
  return true;
}

// Copies the name, because Add may ask a question, and the window may close meanwhile.
void winSumlet::TemplateSaver_Saved(const NameProviderDialog& sender) {
  const String name = sender.Text;
  TemplatesManager::Add(name, textInput().Text());
}

// Filters the events of the viewports of both areas.
bool winSumlet::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel) return TurnWheel(static_cast<const QWheelEvent&>(*event));
  if (event->type() == QEvent::MouseButtonDblClick && watched == textOutput().viewport())
    return DoubleClickResult(static_cast<const QMouseEvent&>(*event));
  return BaseWindow::eventFilter(watched, event);
}

// With Ctrl the wheel changes the text size. A high-resolution wheel or a touch pad sends several events for one step.
bool winSumlet::TurnWheel(const QWheelEvent& event) {
  if (!(event.modifiers() & Qt::ControlModifier)) return false;
  wheelTurn_ += event.angleDelta().y();
  const int steps = wheelTurn_ / QWheelEvent::DefaultDeltasPerStep;
  wheelTurn_ %= QWheelEvent::DefaultDeltasPerStep;
  if (steps != 0) StepTextSize(steps);
  return true;
}

// A double click on an error moves the caret to its line. On a value it selects a word, as in any text.
bool winSumlet::DoubleClickResult(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton || !math->ResultIsError()) return false;
  _EditGoToError_Action();
  return true;
}

}  // namespace sumlet
