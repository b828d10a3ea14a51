// The menu items that an equation window answers.
#include "equationwindow/win_sumlet.h"
#include "framework/clipboard.h"
#include "framework/ui/menu_bar.h"

namespace sumlet {

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

// A command that follows the last key at once is about the text that the user sees, not about the result of before.
void winSumlet::CalculateIfDue() {
  if (IsCalculationDue()) Calculate();
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

String winSumlet::GetFirstLine() const {
  const String text = textInput().Text();
  LineReader lines(text);
  for (std::string_view line; lines.Next(line);) {
    if (const std::string_view trimmed = Trimmed(line); !trimmed.empty()) return String(trimmed);
  }
  return {};
}

}  // namespace sumlet
