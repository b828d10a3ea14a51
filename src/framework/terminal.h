// Text for a terminal: whether there is one, what it must not be sent, and how many columns a text takes on it.
#pragma once

#include <cstdio>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

[[nodiscard]] bool IsTerminal(std::FILE* stream);

// `text` with each control character and each byte that is no UTF-8 as an escape sequence of C: \t, \n, \r, \x1B. The
// controls from U+0080 to U+009F, which some terminals obey as well, become \u0080 to \u009F.
[[nodiscard]] String EscapeControls(std::string_view text);

// What may be written to `stream`: escaped if it is a terminal, otherwise `text` as it is.
[[nodiscard]] String TextFor(std::FILE* stream, std::string_view text);

// The columns that `text` takes on a terminal: two for a wide character of East Asia and an emoji, none for a combining
// mark. `text` holds no control characters.
[[nodiscard]] std::size_t DisplayColumns(std::string_view text);

}  // namespace sumlet
