// Selects whole numbers and names on double clicks. Qt's own words end at a decimal point, and treat 2x as one word.
#pragma once

#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QStringView>
#include <QTextCursor>

namespace sumlet {

// A part of a line, counted from 0 in UTF-16 units; empty where there is no token.
struct Token {
  int start = 0;
  int length = 0;
  bool operator==(const Token&) const = default;
};

// Returns the number or name that contains the character at `index`. A number may contain decimal points, and commas
// that group its digits. In parentheses, commas separate arguments and end a number. A name starts with a letter and
// may contain digits.
[[nodiscard]] Token TokenAt(QStringView line, int index);

// Extends a selection by mouse to whole tokens. The control calls these functions after it has handled the mouse event
// itself.
class TokenSelection {
 public:
  explicit TokenSelection(QPlainTextEdit& control) : control_(control) {}

  void Press(const QMouseEvent& event);
  void DoubleClick(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  // Whether the selection began with a double click on a token.
  [[nodiscard]] bool IsActive() const { return !anchor_.isNull(); }

 private:
  [[nodiscard]] QTextCursor TokenUnder(const QPoint& place) const;
  void ExtendTo(const QPoint& place);

  QPlainTextEdit& control_;
  QTextCursor anchor_;  // selects the token of the last double click; null if none
};

}  // namespace sumlet
