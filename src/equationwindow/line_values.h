// LineValues: the values of the lines of an equation. They move with their lines while the user edits the text, and
// a line that changes loses its value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "framework/text/text.h"

class QTextBlock;
class QTextDocument;

namespace sumlet {

class MathClass;

class LineValues {
 public:
  LineValues() = default;  // of no line

  // Evaluates math.equationText, whose lines end in LF, by MathClass::Evaluate, and keeps the value of each line. Keeps
  // at most 64 MiB of values; the lines beyond that have none.
  explicit LineValues(MathClass& math);

  // Returns the value of a line, 0-based; empty if the line has none or does not exist. Valid until the next change.
  [[nodiscard]] std::string_view ValueOf(Int32 line) const;

  // Moves the values with their lines and drops those of changed lines. Call it after each change of the document with
  // the arguments of QTextDocument::contentsChange. The document's lines before the change are those of the equation.
  void UpdateForEdit(const QTextDocument& document, int position, int added);

 private:
  struct Line {
    std::size_t text = 0;     // its hash
    std::uint32_t begin = 0;  // of the value in values_, in bytes
    std::uint32_t length = 0;
  };
  [[nodiscard]] static bool IsUnchanged(const Line& line, const QTextBlock& block);
  void Take(Int32 line, std::string_view value);

  std::vector<Line> lines_;
  String values_;  // concatenated
};

}  // namespace sumlet
