// Text streams that read and write line by line. A stream holds the whole text in memory.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include "framework/text/text.h"

namespace sumlet {

class TextInputStream {
 public:
  explicit TextInputStream(String content) : content_(std::move(content)) {}

  // The next line without its line ending: CR, LF or CR LF. Empty at the end.
  [[nodiscard]] std::string_view ReadLine();
  // Moves to the first line.
  void Rewind() { next_ = 0; }
  // Whether all lines have been read. A line ending at the end of the text does not start another line.
  [[nodiscard]] bool AtEnd() const { return next_ >= content_.size(); }

 private:
  String content_;
  std::size_t next_ = 0;
};

class TextOutputStream {
 public:
  // `lineEnding` must outlive the stream.
  explicit TextOutputStream(std::string_view lineEnding = EndOfLine) : lineEnding_(lineEnding) {}

  // Appends `indentation`, the text and the line ending.
  void WriteLine(std::string_view text) { WriteLine({}, text); }
  void WriteLine(std::string_view indentation, std::string_view text);
  // Appends all lines of another stream.
  void Add(const TextOutputStream& lines);

  // Whether the text exceeded largestContent (file_content.h). The stream then discards it.
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
