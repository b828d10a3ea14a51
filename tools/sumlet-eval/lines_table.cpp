#include "lines_table.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "framework/terminal.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

// Leaves room for the number and for ten decimals on a terminal of 80 columns.
constexpr std::size_t widestText = 60;  // columns

struct ShownLine {
  String text;
  std::size_t columns;
};

ShownLine Shown(std::string_view line) {
  while (!line.empty() && IsWhiteSpace(line.back())) line.remove_suffix(1);
  String text = EscapeControls(ReplaceAll(line, "\t", "    "));
  const std::size_t columns = DisplayColumns(text);
  return {std::move(text), columns};
}

// Omits the empty line behind a line ending at the end of the text.
std::vector<ShownLine> ShownLines(std::string_view equation) {
  std::vector<ShownLine> lines;
  LineReader reader(equation);
  for (std::string_view line; reader.Next(line);) lines.push_back(Shown(line));
  if (equation.ends_with('\n') || equation.ends_with('\r')) lines.pop_back();
  return lines;
}

}  // namespace

void LinesTable::AddError(Int32 line, std::string_view error) {
  AddValue(line, error);
  failedLine_ = line;
}

String LinesTable::Rows(std::string_view equation) const {
  const std::vector<ShownLine> lines = ShownLines(equation);
  std::size_t textWidth = 0;
  for (const LineValue& value : values_) {
    const std::size_t columns = lines[static_cast<std::size_t>(value.line)].columns;
    if (columns <= widestText) textWidth = std::max(textWidth, columns);
  }
  const std::size_t numberWidth = std::to_string(lines.size()).size();

  String rows;
  auto value = values_.begin();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool hasValue = value != values_.end() && value->line == static_cast<Int32>(i);
    const String number = std::to_string(i + 1);
    rows.append(numberWidth - number.size(), ' ').append(number);
    rows.append(hasValue && value->line == failedLine_ ? "! " : "  ").append(lines[i].text);
    if (hasValue) {
      const bool isBeside = lines[i].columns <= textWidth;
      if (!isBeside) rows += '\n';
      rows.append(isBeside ? textWidth - lines[i].columns : numberWidth + 2 + textWidth, ' ');
      rows.append("  ").append(EscapeControls(value->text));
      ++value;
    }
    while (rows.ends_with(' ')) rows.pop_back();
    rows += '\n';
  }
  return rows;
}

}  // namespace sumlet
