// The commands of an equation window that copy the values of its lines.
#include <QTextBlock>

#include "engine/comments.h"
#include "equationwindow/value_text.h"
#include "equationwindow/win_sumlet.h"
#include "framework/clipboard.h"
#include "framework/ui/qt_text.h"

namespace sumlet {

// Without an evaluation: whether a line's value is known, 0-based, or can turn out to be.
bool winSumlet::LineMayHaveValue(Int32 line) const {
  const String text = FromQString(textInput().document()->findBlockByNumber(line).text());
  const std::string_view trimmed = Trimmed(text);
  if (trimmed.empty() || IsComment(trimmed)) return false;
  return IsCalculationDue() || !math->ResultIsError() || line < math->LastLineEvaluated;
}

// The values of the text as it is. Where none are shown, one more calculation gives them.
LineValues winSumlet::CurrentValues() {
  if (valueDisplay_ != nullptr) {
    CalculateIfDue();
    return valueDisplay_->Values();
  }
  math->equationText = textInput().Text();
  LineValues values(*math);
  ShowResult();
  return values;
}

void winSumlet::CopyValue(Int32 line, std::string_view value) {
  if (value.empty()) return;
  SetClipboardText(value);
  Announce("Copied " + String(value));
  if (valueDisplay_ != nullptr) valueDisplay_->Flash(line);
}

bool winSumlet::_EditCopyLineValue_Action() {
  const Int32 line = textInput().textCursor().blockNumber();
  const LineValues values = CurrentValues();
  CopyValue(line, values.ValueOf(line));
  return true;
}

// A selection that ends at the beginning of a line has nothing of that line.
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
  return true;
}

}  // namespace sumlet
