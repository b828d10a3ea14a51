// What is shown, and what is copied, of the values of an equation's lines.
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

// What is shown in it. Without a text nothing is.
struct PlacedValue {
  QString text;
  double left = 0;
  double width = 0;
};

// Places a value at the edge of the text area, two blanks away from the text at least. One that has not enough room is
// cut and ends in "…"; where that leaves fewer than three characters, nothing is shown. `widthOf` gives the width of a
// character in pixels.
[[nodiscard]] PlacedValue PlaceValue(const QString& value, const ValueRoom& room,
                                     const std::function<double(QChar)>& widthOf);

// The lines of `text` from `first` to `last`, 0-based and both included, each with its value behind an arrow. The
// arrows form a column after the longest line with a value. Lines of more than 80 characters do not count for it. LF
// separates the lines; the last one has no line ending.
[[nodiscard]] String TextWithValues(std::string_view text, const LineValues& values, Int32 first, Int32 last);

}  // namespace sumlet
