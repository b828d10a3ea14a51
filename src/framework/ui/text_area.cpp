// Uses QPlainTextEdit, because QTextEdit gets slower with each line of the text.
//
// The text wraps at word boundaries, and inside a word that is longer than a line. Qt does that in time quadratic in
// the length of the word: a minute for a million digits. WrapAnywhere takes linear time, so the area uses that mode
// while the text contains a very long line.
#include "framework/ui/text_area.h"

#include <QAbstractTextDocumentLayout>
#include <QChar>
#include <QColor>
#include <QEvent>
#include <QFocusEvent>
#include <QFont>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMargins>
#include <QMimeData>
#include <QPalette>
#include <QPoint>
#include <QResizeEvent>
#include <QScrollBar>
#include <QString>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>

#include "framework/ui/plain_style.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

constexpr QColor restingSelectionColor(0xD4, 0xD4, 0xD4);
constexpr int longLine = 4096;  // characters
constexpr int sideMargin = 4;   // pixels between the text and the area's edges
constexpr int topMargin = 3;

bool IsLong(const QTextBlock& block) { return block.length() > longLine; }

QFont OfSize(QFont font, Int32 points) {
  font.setPointSize(std::clamp(points, 1, 1000));
  return font;
}

// The height of a line in pixels, computed as QPlainTextDocumentLayout does. QFontMetrics::height() rounds differently
// and ignores the leading.
int LaidOutHeight(const QFont& font, const QPaintDevice* device) {
  QTextLayout layout(QStringLiteral("x"), font, device);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLeadingIncluded(true);
  layout.endLayout();
  return std::max(qCeil(line.height()) + std::min(qCeil(line.leading()), 0), 1);
}

bool HasLongLine(QStringView text) {
  for (const QStringView line : text.tokenize(u'\n'))
    if (line.size() >= longLine) return true;
  return false;
}

bool HasLetter(QStringView text) {
  return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

// Whether the key types a character or a line end. AltGr is Ctrl and Alt on Windows; on macOS Alt types characters.
bool IsTyped(const QKeyEvent& key) {
  const QString text = key.text();
  if (text.isEmpty() || !(text.front().isPrint() || text.front().isSurrogate() || text == QLatin1String("\r")))
    return false;
  const auto modifiers = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return modifiers == Qt::NoModifier || modifiers == (Qt::ControlModifier | Qt::AltModifier);
}

// For Qt's raw text, which separates lines by U+2029. Qt's plain text would turn no-break spaces into spaces.
QString WithLineFeeds(QString raw) { return raw.replace(QChar::ParagraphSeparator, QLatin1Char('\n')); }

}  // namespace

TextArea::TextArea(QWidget* parent) : QPlainTextEdit(parent), lineFormats_(new LineFormats(document())) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setLineWidth(1);
  SetColors(false);
  UseLightScrollBar(*this);
  setBackgroundRole(QPalette::Base);        // of the margins; the text has it anyway
  setForegroundRole(QPalette::WindowText);  // of the border
  setAutoFillBackground(true);
  document()->setDocumentMargin(0);
  document()->clearUndoRedoStacks();  // otherwise undo would restore the margin
  SetMargins();
  setTabChangesFocus(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // Qt would still scroll sideways, to a caret at the end of a full line, and stay there.
  connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this] { horizontalScrollBar()->setRange(0, 0); });
  connect(document(), &QTextDocument::contentsChange, this,
          [this](int position, int, int added) { WrapAnywhereIfLong(position, added); });
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    WrapAtWordsIfShort();
    if (isReadOnly()) SetMargins();
    if (TextChange) TextChange(*this);
  });
}

String TextArea::Text() const { return FromQString(WithLineFeeds(document()->toRawText())); }

void TextArea::SetText(std::string_view text) {
  const QString characters = ToQString(text);
  if (WrapsAnywhere(characters)) setWordWrapMode(QTextOption::WrapAnywhere);
  document()->setPlainText(characters);  // the control's own setPlainText lays the text out before its formats are set
  moveCursor(QTextCursor::Start);
}

void TextArea::SetTextSize(Int32 points) {
  const QFont textFont = OfSize(font(), points);
  if (textFont != font()) setFont(textFont);
}

Int32 TextArea::LineHeight(Int32 points) const { return LaidOutHeight(OfSize(font(), points), viewport()); }

// The margin at the top shrinks first, so that an area as high as its text and the borders shows the text whole. Does
// not use QTextDocument's margin, which is equal on all sides and scrolls with the text.
//
// Qt scrolls unless the viewport is a pixel higher than the text. If the area has less room, the viewport extends below
// the area's edge, which cuts it off. So an area less high than one line shows the upper part of the line.
void TextArea::SetMargins() {
  const int space = height() - 2 * frameWidth();
  const int line = LaidOutHeight(font(), viewport());
  const int shown = HeightToShow(space, line);
  const int top = std::clamp((space - shown) / 2, 0, topMargin);
  const int bottom = std::min(space - top - shown - 1, 0);
  const QMargins margins(sideMargin, top, sideMargin, bottom);
  if (margins != viewportMargins()) setViewportMargins(margins);
}

int TextArea::HeightToShow(int space, int line) const {
  if (!isReadOnly()) return line;
  // The caller's layout ignores the borders and fallback fonts, so a text may exceed `space` by the borders, or by half
  // a line where a fallback font makes lines higher.
  const int room = space + 2 * frameWidth();
  const int roomForOtherFonts = space + line / 2;
  int lines = 0;
  qreal textHeight = 0;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    textHeight += document()->documentLayout()->blockBoundingRect(block).height();
    lines += block.layout()->lineCount();
    if (lines * line > room || textHeight > roomForOtherFonts) return std::max(space / line, 1) * line;
  }
  return qCeil(textHeight);
}

bool TextArea::IsCaretVisible(const QSize& viewportSize) const {
  return cursorRect().intersects(QRect(QPoint(0, 0), viewportSize));
}

void TextArea::MoveCaretToLineEnd(Int32 line) {
  const QTextBlock block = document()->findBlockByNumber(line);
  QTextCursor caret(block.isValid() ? block : document()->lastBlock());
  caret.movePosition(QTextCursor::EndOfBlock);
  setTextCursor(caret);
  ensureCursorVisible();
}

Int32 TextArea::LineNumAtCharPos(Int32 position) const {
  const auto units = ToQString(Left(Text(), position)).size();  // of UTF-16, as Qt counts
  Int32 lines = 0;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    document()->documentLayout()->blockBoundingRect(block);  // lays the block out if it has not been yet
    const QTextLayout& layout = *block.layout();
    const int within = static_cast<int>(units) - block.position();
    if (within < block.length()) return lines + layout.lineForTextPosition(within).lineNumber() + 1;
    lines += layout.lineCount();
  }
  return lines;
}

std::vector<TextArea::FreeRoom> TextArea::RoomsBesideLines(int top, int bottom) const {
  std::vector<FreeRoom> rooms;
  QTextBlock block = firstVisibleBlock();
  qreal y = blockBoundingGeometry(block).translated(contentOffset()).top();
  for (; block.isValid() && y <= bottom; block = block.next()) {
    const qreal height = blockBoundingRect(block).height();  // lays the block out if it has not been yet
    const QTextLayout& layout = *block.layout();
    if (y + height >= top && layout.lineCount() > 0 && layout.preeditAreaText().isEmpty())
      rooms.push_back(RoomBeside(block, y));
    y += height;
  }
  return rooms;
}

// naturalTextRect excludes blanks at the end of a line, but the caret can be after them, so this includes them.
// Right-to-left text can begin at either edge.
TextArea::FreeRoom TextArea::RoomBeside(const QTextBlock& block, qreal top) const {
  const QTextLine line = block.layout()->lineAt(block.layout()->lineCount() - 1);
  const qreal end = line.cursorToX(line.textStart() + line.textLength());
  const qreal width = viewport()->width();
  const qreal left = std::clamp(std::min(line.naturalTextRect().left(), end), 0.0, width);
  const qreal right = std::clamp(std::max(line.naturalTextRect().right(), end), left, width);
  const bool isLeft = left > width - right;
  const QRectF room(isLeft ? 0 : right, top + line.y(), isLeft ? left : width - right, line.height());
  return {block.blockNumber(), room, top + line.y() + line.ascent(), isLeft};
}

void TextArea::SetReadOnly(bool readOnly) {
  setReadOnly(readOnly);
  if (readOnly) setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

// Qt disables input methods in read-only controls. A dead key would then type its letter without the accent.
void TextArea::SetTypingReceiver(TextArea& receiver) {
  typingReceiver_ = &receiver;
  setAttribute(Qt::WA_InputMethodEnabled);
}

void TextArea::SetScrollbarVertical(bool shown) {
  setVerticalScrollBarPolicy(shown ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void TextArea::SetColors(bool selectionOutlivesFocus) {
  QPalette colors = PaperPalette();
  colors.setColor(QPalette::PlaceholderText, Qt::gray);
  colors.setColor(QPalette::Highlight, SelectionColor);
  colors.setColor(QPalette::HighlightedText, Qt::white);
  colors.setColor(QPalette::Inactive, QPalette::Highlight,
                  selectionOutlivesFocus ? restingSelectionColor : QColor(Qt::white));
  colors.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
  setPalette(colors);
}

void TextArea::changeEvent(QEvent* event) {
  if (event->type() != QEvent::FontChange) return QPlainTextEdit::changeEvent(event);
  const bool caretWasVisible = IsCaretVisible(viewport()->size());
  QPlainTextEdit::changeEvent(event);
  SetMargins();
  if (caretWasVisible) ensureCursorVisible();
}

void TextArea::focusInEvent(QFocusEvent* event) {
  SetColors(true);
  QPlainTextEdit::focusInEvent(event);
}

// Hides the selection when another control takes the focus. Shows it in grey while a menu is open or another window is
// active, because the focus will come back, and a menu command applies to this selection.
void TextArea::focusOutEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  SetColors(reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
            reason == Qt::ActiveWindowFocusReason);
  QPlainTextEdit::focusOutEvent(event);
}

// Copies and drags the text as typed, including no-break spaces.
QMimeData* TextArea::createMimeDataFromSelection() const {
  auto* copied = new QMimeData;
  copied->setText(WithLineFeeds(textCursor().selectedText()));
  return copied;
}

// Keeps the position of the caret. While another control has the focus, the selection is not visible, and typing must
// not replace it.
void TextArea::ClearSelection() {
  QTextCursor caret = textCursor();
  caret.clearSelection();
  setTextCursor(caret);
}

// Moves the focus only after the composition, because a change of the focus would end it.
void TextArea::inputMethodEvent(QInputMethodEvent* event) {
  if (typingReceiver_ != nullptr) {
    typingReceiver_->ClearSelection();
    typingReceiver_->inputMethodEvent(event);
    if (event->preeditString().isEmpty() && !event->commitString().isEmpty())
      typingReceiver_->setFocus(Qt::OtherFocusReason);
    return;
  }
  const int start = textCursor().selectionStart() + std::min(event->replacementStart(), 0);
  const int sizeBefore = document()->characterCount();
  lineFormats_->BeginComposition();
  QPlainTextEdit::inputMethodEvent(event);
  const auto added = static_cast<int>(event->commitString().size());
  lineFormats_->EndComposition(std::max(start, 0), sizeBefore + added - document()->characterCount(), added);
}

QVariant TextArea::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (typingReceiver_ == nullptr) return QPlainTextEdit::inputMethodQuery(query);
  QVariant answer = typingReceiver_->inputMethodQuery(query);
  if (!answer.canConvert<QRectF>()) return answer;
  return answer.toRectF().translated(typingReceiver_->viewport()->mapTo(window(), QPoint()) -
                                     viewport()->mapTo(window(), QPoint()));
}

// Qt would insert U+2028 for Shift and Return. It looks like a line end, but the calculation does not treat it as one.
void TextArea::keyPressEvent(QKeyEvent* event) {
  if (typingReceiver_ != nullptr && IsTyped(*event)) {
    typingReceiver_->ClearSelection();
    typingReceiver_->setFocus(Qt::OtherFocusReason);
    typingReceiver_->keyPressEvent(event);
    return;
  }
  if (event == QKeySequence::InsertLineSeparator && !isReadOnly()) {
    QKeyEvent plainReturn(event->type(), Qt::Key_Return, Qt::NoModifier, event->text());
    QPlainTextEdit::keyPressEvent(&plainReturn);
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
}

// Qt keeps the first visible line in place, which may hide the caret.
void TextArea::resizeEvent(QResizeEvent* event) {
  const bool caretWasVisible = IsCaretVisible(event->oldSize());
  QPlainTextEdit::resizeEvent(event);
  SetMargins();
  if (caretWasVisible) ensureCursorVisible();
}

// Qt would break a number after its decimal point, regardless of the room left in the line.
bool TextArea::WrapsAnywhere(QStringView text) const { return HasLongLine(text) || (isReadOnly() && !HasLetter(text)); }

// Runs before the changed text is laid out.
void TextArea::WrapAnywhereIfLong(int position, int added) {
  if (wordWrapMode() == QTextOption::WrapAnywhere) return;
  const QTextBlock end = document()->findBlock(position + added).next();
  for (QTextBlock block = document()->findBlock(position); block.isValid() && block != end; block = block.next()) {
    if (!IsLong(block)) continue;
    setWordWrapMode(QTextOption::WrapAnywhere);
    return;
  }
}

void TextArea::WrapAtWordsIfShort() {
  if (wordWrapMode() != QTextOption::WrapAnywhere || (isReadOnly() && !HasLetter(document()->toRawText()))) return;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    if (IsLong(block)) return;
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

}  // namespace sumlet
