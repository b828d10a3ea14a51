// TextArea's handling of the mouse: selection, drag and drop, scrolling and the context menu.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QString>
#include <QTextCursor>
#include <QWheelEvent>

#include "framework/ui/edit_items.h"
#include "framework/ui/incoming_files.h"
#include "framework/ui/text_area.h"

namespace sumlet {

bool TextArea::canInsertFromMimeData(const QMimeData* source) const {
  return QPlainTextEdit::canInsertFromMimeData(source) || !FilesIn(*source).empty();
}

// Pastes the text of a copied link, not its URL. Inserts the text directly, because Qt would first build a document
// from it, which takes three times as long.
void TextArea::insertFromMimeData(const QMimeData* source) {
  if (!FilesIn(*source).empty()) {
    OpenIncoming(*source);
    return;
  }
  const QString text = source->text();
  if (isReadOnly() || text.isEmpty()) return;
  QTextCursor caret = textCursor();
  caret.insertText(text);
  setTextCursor(caret);
  ensureCursorVisible();
}

// The window handles a drag that this area ignores.
void TextArea::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls())
    event->ignore();
  else
    QPlainTextEdit::dragEnterEvent(event);
}

// Replaces Qt's own menu, which does not show the shortcuts of the Edit menu.
void TextArea::contextMenuEvent(QContextMenuEvent* event) {
  const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
  ShowEditMenu(*this, isByKey ? viewport()->mapToGlobal(cursorRect().bottomLeft()) : event->globalPos());
}

// Takes the focus, so that the user can continue typing after the dropped text.
void TextArea::dropEvent(QDropEvent* event) {
  QPlainTextEdit::dropEvent(event);
  if (event->isAccepted()) setFocus(Qt::OtherFocusReason);
}

void TextArea::mousePressEvent(QMouseEvent* event) {
  dragHasEnded_ = false;
  QPlainTextEdit::mousePressEvent(event);
  tokens_.Press(*event);
}

// A drag that begins here runs and ends inside the base call. Afterwards Qt acts as if the button were still down: it
// scrolls, starts another drag without an end, and clears the selection on the release. So this sends a release of no
// button, which only stops the scrolling, and ignores further events of this button.
void TextArea::mouseMoveEvent(QMouseEvent* event) {
  if (dragHasEnded_) return;
  QPlainTextEdit::mouseMoveEvent(event);
  tokens_.Move(*event);
  dragHasEnded_ = viewport()->findChild<QDrag*>() != nullptr;
  if (!dragHasEnded_) return;
  QMouseEvent release(QEvent::MouseButtonRelease, event->position(), event->globalPosition(), Qt::NoButton,
                      Qt::NoButton, event->modifiers());
  QPlainTextEdit::mouseReleaseEvent(&release);
}

void TextArea::mouseReleaseEvent(QMouseEvent* event) {
  if (dragHasEnded_ && event->button() == Qt::LeftButton) return;
  QPlainTextEdit::mouseReleaseEvent(event);
  // Replaces Qt's own word as the text that a middle click pastes.
  QClipboard& clipboard = *QGuiApplication::clipboard();
  if (event->button() == Qt::LeftButton && tokens_.IsActive() && clipboard.supportsSelection())
    clipboard.setMimeData(createMimeDataFromSelection(), QClipboard::Selection);
}

void TextArea::mouseDoubleClickEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseDoubleClickEvent(event);
  tokens_.DoubleClick(*event);
}

// Scrolls only. Qt would change the text size of a read-only area on Ctrl and the wheel, but the program sets the size.
void TextArea::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() & Qt::ControlModifier)
    QAbstractScrollArea::wheelEvent(event);
  else
    QPlainTextEdit::wheelEvent(event);
}

}  // namespace sumlet
