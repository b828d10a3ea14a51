// TextArea: a control for plain text of many lines. Wraps lines at words. Wraps anywhere if a line is very long, or if
// a read-only text has no letters: it is then a number.
//
// When the area or its text changes size, a caret that was visible stays visible. A read-only text that fits does not
// scroll.
//
// The area is black on white regardless of the desktop's colours, and uses the desktop's font. It has a border of one
// pixel inside its bounds. Only the caret shows the focus, and Tab moves the focus to the next control. Editing is
// Qt's, with two exceptions: pasting files opens them (incoming_files.h), and the window handles drags of files and
// URLs.
#pragma once

#include <QPlainTextEdit>
#include <QRectF>
#include <QStringView>
#include <QVariant>
#include <functional>
#include <string_view>
#include <vector>

#include "framework/text/text.h"
#include "framework/ui/line_formats.h"
#include "framework/ui/token_selection.h"

namespace sumlet {

class TextArea : public QPlainTextEdit {
 public:
  explicit TextArea(QWidget* parent);

  // The text in UTF-8. All line ends (LF, CR, CR LF, U+2029) become LF, and bytes that are not UTF-8 become U+FFFD.
  // Setting the text clears the undo history.
  [[nodiscard]] String Text() const;
  void SetText(std::string_view text);

  // Sets the size of the whole text in points, limited to the range from 1 to 1000.
  void SetTextSize(Int32 points);

  // Returns the height of a line of text of that size in pixels, rounded up. Characters from a fallback font may make a
  // line higher.
  [[nodiscard]] Int32 LineHeight(Int32 points) const;

  // Read only, the text can still be selected and copied, by mouse and by keyboard.
  void SetReadOnly(bool readOnly);

  // Passes text that the user types or composes into this read-only area to `receiver`, and moves the focus there. The
  // receiver must outlive this area.
  void SetTypingReceiver(TextArea& receiver);

  // Sets whether a vertical scroll bar appears when the text is higher than the area. There is never a horizontal one.
  void SetScrollbarVertical(bool shown);

  // Returns the display line, 1-based, of the position after the first `position` characters. A wrapped line counts as
  // several.
  [[nodiscard]] Int32 LineNumAtCharPos(Int32 position) const;

  // Moves the caret to the end of a line, 0-based, or of the last line if there is no such line, and scrolls to it.
  void MoveCaretToLineEnd(Int32 line);

  // The wider of the free spaces to the left and to the right of a line's text, beside the last of its display lines.
  struct FreeRoom {
    int line;     // 0-based
    QRectF room;  // in pixels of the viewport; its width is 0 if the text fills the line
    qreal baseline;
    bool isLeftOfText;  // the text is at the right edge
  };
  // Returns the rooms of the visible lines between two y coordinates of the viewport, from top to bottom. Omits a line
  // in which an input method composes.
  [[nodiscard]] std::vector<FreeRoom> RoomsBesideLines(int top, int bottom) const;

  // Colours line i in colors[i], or black if that is invalid or missing. Does not change the text. Text typed into a
  // coloured line takes its colour.
  void SetLineColors(const std::vector<QColor>& colors) { lineFormats_->Apply(colors); }

  // Runs after each change of the text, including SetText, but not after a change of its formats.
  std::function<void(TextArea& sender)> TextChange;

  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
  [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
  [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  // Returns the height in pixels that the viewport should have: that of the text if it is read-only and fits into
  // `space` pixels, else that of one line, or of all whole lines that fit if it is read-only. `line` is a line's
  // height.
  [[nodiscard]] int HeightToShow(int space, int line) const;
  [[nodiscard]] bool IsCaretVisible(const QSize& viewportSize) const;
  [[nodiscard]] FreeRoom RoomBeside(const QTextBlock& block, qreal top) const;
  [[nodiscard]] bool WrapsAnywhere(QStringView text) const;
  void SetMargins();
  void SetColors(bool selectionOutlivesFocus);
  void ClearSelection();
  void WrapAnywhereIfLong(int position, int added);
  void WrapAtWordsIfShort();

  LineFormats* lineFormats_;
  TokenSelection tokens_{*this};
  bool dragHasEnded_ = false;  // a drag that began here has ended, and no button was pressed since
  TextArea* typingReceiver_ = nullptr;
};

}  // namespace sumlet
