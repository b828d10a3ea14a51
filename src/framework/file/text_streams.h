// Text files line by line. A stream holds the whole text: a file is read before its first line is asked for, and
// written when its last one is there.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include "framework/text/text.h"

namespace sumlet {

class TextInputStream {
 public:
  explicit TextInputStream(String content) : content_(std::move(content)) {}

  // The next line without its ending: CR, LF or CR LF. Empty at the end.
  [[nodiscard]] std::string_view ReadLine();
  // Goes back to the first line.
  void Rewind() { next_ = 0; }
  // Whether nothing is left. Behind the ending of the last line there is no further one.
  [[nodiscard]] bool AtEnd() const { return next_ >= content_.size(); }

 private:
  String content_;
  std::size_t next_ = 0;
};

class TextOutputStream {
 public:
  // `lineEnding` must outlive the stream.
  explicit TextOutputStream(std::string_view lineEnding = EndOfLine) : lineEnding_(lineEnding) {}

  // Adds the text, behind `indentation` where that is given, and the line ending.
  void WriteLine(std::string_view text) { WriteLine({}, text); }
  void WriteLine(std::string_view indentation, std::string_view text);
  // Adds all lines of another stream.
  void Add(const TextOutputStream& lines);

  // Whether more came in than largestContent (file_content.h). Nothing is kept then.
  [[nodiscard]] bool Overflowed() const { return overflowed_; }
  [[nodiscard]] const String& Content() const { return content_; }
  [[nodiscard]] std::string_view LineEnding() const { return lineEnding_; }

 private:
  [[nodiscard]] bool HasRoom(std::size_t length);

  std::string_view lineEnding_;
  String content_;
  bool overflowed_ = false;
};

}  // namespace sumlet
