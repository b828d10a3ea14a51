// The search that ignores case, with byte offsets. The functions of text.h are built on it.
#pragma once

#include <cstddef>
#include <string_view>

namespace sumlet {

// Byte range [begin, end) of a match. Its length can differ from that of the text searched for: the Kelvin sign, which
// has three bytes, matches the letter k.
struct Match {
  bool found = false;
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Finds the first `find` in `source` at or after the byte offset `from`. Finds the empty text at `from`.
[[nodiscard]] Match FindText(std::string_view source, std::string_view find, std::size_t from);

}  // namespace sumlet
