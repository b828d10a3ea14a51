#include "framework/file/text_streams.h"

#include <algorithm>

#include "framework/file/file_content.h"

namespace sumlet {

std::string_view TextInputStream::ReadLine() {
  const std::string_view rest = std::string_view(content_).substr(std::min(next_, content_.size()));
  const std::size_t length = std::min(rest.find_first_of("\r\n"), rest.size());
  const bool pair = rest.substr(length, 2) == "\r\n";
  next_ += std::min(length + (pair ? 2 : 1), rest.size());
  return rest.substr(0, length);
}

void TextOutputStream::WriteLine(std::string_view indentation, std::string_view text) {
  if (!HasRoom(indentation.size() + text.size() + lineEnding_.size())) return;
  content_ += indentation;
  content_ += text;
  content_ += lineEnding_;
}

void TextOutputStream::Add(const TextOutputStream& lines) {
  overflowed_ = overflowed_ || lines.overflowed_;
  if (HasRoom(lines.content_.size())) content_ += lines.content_;
}

bool TextOutputStream::HasRoom(std::size_t length) {
  overflowed_ = overflowed_ || content_.size() + length > largestContent;
  if (overflowed_) content_ = String();
  return !overflowed_;
}

}  // namespace sumlet
