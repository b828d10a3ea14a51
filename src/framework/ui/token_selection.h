// Selects whole numbers and names by double clicks. Qt's words end at a decimal point, and join 2x.
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

// The number or name that holds the character at `index`. A number has points between its digits, and commas that
// group them, except in parentheses, where they divide arguments. A name begins with a letter and may hold digits.
[[nodiscard]] Token TokenAt(QStringView line, int index);

// Turns the words that a control has selected by mouse into tokens. The control passes each mouse event on after it has
// handled it.
class TokenSelection {
 public:
  explicit TokenSelection(QPlainTextEdit& control) : control_(control) {}

  void Press(const QMouseEvent& event);
  void DoubleClick(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  // Whether the selection was begun by a double click on a token.
  [[nodiscard]] bool IsActive() const { return !anchor_.isNull(); }

 private:
  [[nodiscard]] QTextCursor TokenUnder(const QPoint& place) const;
  void ExtendTo(const QPoint& place);

  QPlainTextEdit& control_;
  QTextCursor anchor_;  // selects the token of the last double click; null when there is none
};

}  // namespace sumlet
