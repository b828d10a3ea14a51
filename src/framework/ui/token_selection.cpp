#include "framework/ui/token_selection.h"

#include <QChar>
#include <QPoint>
#include <QString>
#include <QTextBlock>
#include <algorithm>

namespace sumlet {
namespace {

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Counts the surrogates of a character outside the BMP as letters, because the calculation treats all of those as
// letters.
bool IsLetter(QChar c) { return c.isLetter() || c.isMark() || c.isSurrogate() || c == u'_'; }

bool IsDigitAt(QStringView line, qsizetype index) { return index >= 0 && index < line.size() && IsDigit(line[index]); }

bool IsInParentheses(QStringView line, qsizetype index) {
  const QStringView before = line.first(index);
  return before.count(u'(') > before.count(u')');
}

// Whether exactly three digits follow the comma.
bool IsGroupSeparator(QStringView line, qsizetype index) {
  for (int i = 1; i <= 3; ++i)
    if (!IsDigitAt(line, index + i)) return false;
  return IsDigitAt(line, index - 1) && !IsDigitAt(line, index + 4);
}

bool IsOfPlainNumber(QStringView line, qsizetype index) {
  return IsDigit(line[index]) || (line[index] == u'.' && IsDigitAt(line, index + 1));
}

bool IsOfGroupedNumber(QStringView line, qsizetype index) {
  return IsOfPlainNumber(line, index) || (line[index] == u',' && IsGroupSeparator(line, index));
}

bool IsOfName(QStringView line, qsizetype index) { return IsLetter(line[index]) || IsDigit(line[index]); }

// Returns the longest range around `index` whose characters all satisfy `belongs`.
template <typename Predicate>
Token Around(QStringView line, qsizetype index, Predicate belongs) {
  qsizetype start = index;
  qsizetype end = index;
  while (end < line.size() && belongs(line, end)) ++end;
  while (start > 0 && start < end && belongs(line, start - 1)) --start;
  return {static_cast<int>(start), static_cast<int>(end - start)};
}

}  // namespace

Token TokenAt(QStringView line, int index) {
  if (index < 0 || index >= line.size()) return {};
  const Token word = Around(line, index, IsOfName);
  int name = word.start;
  while (name < word.start + word.length && IsDigit(line[name])) ++name;
  if (word.length > 0 && index >= name) return {name, word.start + word.length - name};
  return Around(line, index, IsInParentheses(line, index) ? IsOfPlainNumber : IsOfGroupedNumber);
}

// Qt returns the gap between two characters that is nearest to `place`. Tries the character under `place` first, and if
// it belongs to no token, the one on the other side of the gap.
QTextCursor TokenSelection::TokenUnder(const QPoint& place) const {
  QTextCursor cursor = control_.cursorForPosition(place);
  const QString line = cursor.block().text();
  const int gap = cursor.positionInBlock();
  const bool isBefore = place.x() < control_.cursorRect(cursor).x();
  Token token = TokenAt(line, isBefore ? gap - 1 : gap);
  if (token.length == 0) token = TokenAt(line, isBefore ? gap : gap - 1);
  if (token.length == 0) return cursor;
  cursor.setPosition(cursor.block().position() + token.start);
  cursor.setPosition(cursor.position() + token.length, QTextCursor::KeepAnchor);
  return cursor;
}

void TokenSelection::Press(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) return;
  if (event.modifiers() == Qt::ShiftModifier && !anchor_.isNull())
    ExtendTo(event.position().toPoint());
  else
    anchor_ = QTextCursor();
}

void TokenSelection::DoubleClick(const QMouseEvent& event) {
  const QTextCursor token = TokenUnder(event.position().toPoint());
  if (event.button() != Qt::LeftButton || !token.hasSelection()) return;
  anchor_ = token;
  control_.setTextCursor(token);
}

void TokenSelection::Move(const QMouseEvent& event) {
  if ((event.buttons() & Qt::LeftButton) && !anchor_.isNull()) ExtendTo(event.position().toPoint());
}

void TokenSelection::ExtendTo(const QPoint& place) {
  const QTextCursor token = TokenUnder(place);
  const bool isBehind = token.selectionStart() >= anchor_.selectionStart();
  QTextCursor extended = anchor_;
  extended.setPosition(isBehind ? anchor_.selectionStart() : anchor_.selectionEnd());
  extended.setPosition(isBehind ? std::max(token.selectionEnd(), anchor_.selectionEnd()) : token.selectionStart(),
                       QTextCursor::KeepAnchor);
  control_.setTextCursor(extended);
}

}  // namespace sumlet
