// The one search that ignores case, in bytes. The functions of text.h are built on it.
#pragma once

#include <cstddef>
#include <string_view>

namespace sumlet {

// Byte range [begin, end) of a hit. Its length can differ from that of the searched text: the Kelvin sign, three bytes
// long, matches the letter k.
struct Match {
  bool found = false;
  std::size_t begin = 0;
  std::size_t end = 0;
};

// The first `find` in `source` at or behind the byte offset `from`. The empty text is found at `from`.
[[nodiscard]] Match FindText(std::string_view source, std::string_view find, std::size_t from);

}  // namespace sumlet
