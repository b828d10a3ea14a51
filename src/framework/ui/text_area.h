// TextArea: a plain text of many lines, wrapped at the area's width.
//
// Black on white whatever the desktop's colours, in the desktop's font, with a border of one pixel inside its bounds
// and no sign of the focus but the caret. Tab moves the focus on. All editing by keyboard and mouse is Qt's.
#pragma once

#include <QPlainTextEdit>
#include <functional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

class TextArea : public QPlainTextEdit {
 public:
  explicit TextArea(QWidget* parent);

  // The text character by character, in UTF-8. Whatever ended a line when it came in (LF, CR, CR LF, U+2029), it is LF
  // in here; bytes that are no UTF-8 come out as U+FFFD. Setting the text empties the undo history.
  [[nodiscard]] String Text() const;
  void SetText(std::string_view text);

  // The size of the whole text in points; one out of the range 1 to 1000 takes the nearer end.
  void SetTextSize(Int32 points);

  // Read only, the text can still be selected and copied, by mouse and by keyboard.
  void SetReadOnly(bool readOnly);

  // Whether a vertical scroll bar shows when the text is higher than the area. There is never a horizontal one.
  void SetScrollbarVertical(bool shown);

  // Runs after each change of the text, those by SetText included; not for a change of its looks.
  std::function<void(TextArea& sender)> TextChange;

 protected:
  [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void SetColours(bool selectionOutlivesFocus);
  void WrapAnywhereIfLong(int position, int added);
  void WrapAtWordsIfShort();
};

}  // namespace sumlet
