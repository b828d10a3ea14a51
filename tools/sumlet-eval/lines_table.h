// The lines of an equation with their values, in columns for a terminal.
#pragma once

#include <string_view>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

class LinesTable {
 public:
  // Sets the value of the line with the 0-based index `line`. Call it in the order of the lines.
  void AddValue(Int32 line, std::string_view value) { values_.push_back({line, String(value)}); }

  // Sets the error of the line that failed, after the values.
  void AddError(Int32 line, std::string_view error);

  // Returns a row for each line of `equation`: its 1-based number, the text, and its value if it has one. "!" marks the
  // number of the line that failed. All values begin in the same column. The value of a text wider than 60 columns is
  // in a row of its own below it. Tabs become four blanks, other control characters escape sequences. Each row ends
  // with a line feed.
  [[nodiscard]] String Rows(std::string_view equation) const;

 private:
  struct LineValue {
    Int32 line;
    String text;
  };
  std::vector<LineValue> values_;
  Int32 failedLine_ = -1;
};

}  // namespace sumlet
