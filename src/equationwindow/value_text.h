// The text and position of painted line values, and the text of copied ones.
#pragma once

#include <QString>
#include <functional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

class LineValues;

// The room beside the text of a line, in pixels from the left edge of the text area.
struct ValueRoom {
  double left;
  double right;
  bool isLeftOfText = false;  // the text is at the right edge
};

// A value in that room. Not shown if the text is empty.
struct PlacedValue {
  QString text;
  double left = 0;
  double width = 0;
};

// Places a value at the edge of the text area, at least two blanks away from the text. Cuts a value that is too wide
// and ends it in "…", or omits it if fewer than three characters would be left. `widthOf` returns the width of a
// character in pixels.
[[nodiscard]] PlacedValue PlaceValue(const QString& value, const ValueRoom& room,
                                     const std::function<double(QChar)>& widthOf);

// Returns the lines of `text` from `first` to `last`, 0-based and inclusive, each with its value after an arrow. The
// arrows form a column in a font of fixed width with a tab stop every eight columns. It is after the longest line with
// a value, not counting lines of more than 80 columns. LF separates the lines; the last one has no line ending.
[[nodiscard]] String TextWithValues(std::string_view text, const LineValues& values, Int32 first, Int32 last);

}  // namespace sumlet
