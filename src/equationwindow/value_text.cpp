#include "equationwindow/value_text.h"

#include <QChar>
#include <algorithm>
#include <cstddef>
#include <vector>

#include "equationwindow/line_values.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr QChar ellipsis(0x2026);
constexpr qsizetype minCutLength = 3;        // a value cut to fewer characters, "…" included, is not shown
constexpr std::size_t tabWidth = 8;          // columns
constexpr std::size_t maxAlignedWidth = 80;  // columns; values of longer lines follow their lines without a column

// In a font of fixed width, with a tab stop every eight columns.
std::size_t ColumnsOf(std::string_view line) {
  std::size_t columns = 0;
  for (;;) {
    const std::size_t tab = line.find('\t');
    columns += DisplayColumns(line.substr(0, tab));
    if (tab == std::string_view::npos) return columns;
    columns = (columns / tabWidth + 1) * tabWidth;
    line.remove_prefix(tab + 1);
  }
}

}  // namespace

PlacedValue PlaceValue(const QString& value, const ValueRoom& room, const std::function<double(QChar)>& widthOf) {
  const double maxWidth = room.right - room.left - 2 * widthOf(u' ');
  const double maxWidthBeforeEllipsis = maxWidth - widthOf(ellipsis);
  PlacedValue placed;
  double width = 0;
  qsizetype fitting = 0;  // characters in front of "…"
  for (qsizetype i = 0; i < value.size() && width <= maxWidth; ++i) {
    width += widthOf(value[i]);
    if (width > maxWidthBeforeEllipsis) continue;
    fitting = i + 1;
    placed.width = width + maxWidth - maxWidthBeforeEllipsis;
  }
  if (width <= maxWidth) {
    placed.text = value;
    placed.width = width;
  } else if (fitting + 1 >= minCutLength) {
    placed.text = value.left(fitting) + ellipsis;
  }
  placed.left = room.isLeftOfText ? room.left : room.right - placed.width;
  return placed;
}

String TextWithValues(std::string_view text, const LineValues& values, Int32 first, Int32 last) {
  std::vector<std::string_view> lines;
  LineReader reader(text);
  Int32 lineIndex = 0;
  std::size_t column = 0;
  for (std::string_view line; lineIndex <= last && reader.Next(line); ++lineIndex) {
    if (lineIndex < first) continue;
    lines.push_back(line);
    if (const std::size_t width = ColumnsOf(line); width <= maxAlignedWidth && !values.ValueOf(lineIndex).empty())
      column = std::max(column, width);
  }
  String copied;
  lineIndex = first;
  for (const std::string_view line : lines) {
    if (lineIndex != first) copied += '\n';
    copied += line;
    if (const std::string_view value = values.ValueOf(lineIndex++); !value.empty()) {
      copied.append(column - std::min(ColumnsOf(line), column) + 2, ' ');
      copied.append("→ ").append(value);
    }
  }
  return copied;
}

}  // namespace sumlet
