#include "equationwindow/value_text.h"

#include <algorithm>

#include "equationwindow/line_values.h"

namespace sumlet {
namespace {

constexpr QChar ellipsis(0x2026);
constexpr qsizetype fewestCharacters = 3;  // of a value that is cut, "…" included
constexpr Int32 longestAligned = 80;       // characters of a line

}  // namespace

PlacedValue PlaceValue(const QString& value, const ValueRoom& room, const std::function<double(QChar)>& widthOf) {
  const double most = room.right - room.left - 2 * widthOf(u' ');
  const double mostWhenCut = most - widthOf(ellipsis);
  PlacedValue placed;
  double width = 0;
  qsizetype fitting = 0;  // characters in front of "…"
  for (qsizetype i = 0; i < value.size() && width <= most; ++i) {
    width += widthOf(value[i]);
    if (width > mostWhenCut) continue;
    fitting = i + 1;
    placed.width = width + most - mostWhenCut;
  }
  if (width <= most) {
    placed.text = value;
    placed.width = width;
  } else if (fitting + 1 >= fewestCharacters) {
    placed.text = value.left(fitting) + ellipsis;
  }
  placed.left = room.isLeftOfText ? room.left : room.right - placed.width;
  return placed;
}

String TextWithValues(std::string_view text, const LineValues& values, Int32 first, Int32 last) {
  std::vector<std::string_view> lines;
  LineReader reader(text);
  Int32 number = 0;
  Int32 column = 0;
  for (std::string_view line; number <= last && reader.Next(line); ++number) {
    if (number < first) continue;
    lines.push_back(line);
    if (const Int32 length = Len(line); length <= longestAligned && !values.ValueOf(number).empty())
      column = std::max(column, length);
  }
  String copied;
  number = first;
  for (const std::string_view line : lines) {
    if (number != first) copied += '\n';
    copied += line;
    if (const std::string_view value = values.ValueOf(number++); !value.empty()) {
      copied.append(static_cast<std::size_t>(std::max(column - Len(line), 0)) + 2, ' ');
      copied.append("→ ").append(value);
    }
  }
  return copied;
}

}  // namespace sumlet
