// Text for a terminal: detects one, and escapes control characters.
#pragma once

#include <cstdio>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

[[nodiscard]] bool IsTerminal(std::FILE* stream);

// `text` with each control character and each byte that is not UTF-8 as an escape sequence of C: \t, \n, \r, \x1B. The
// controls from U+0080 to U+009F, which some terminals also obey, become \u0080 to \u009F.
[[nodiscard]] String EscapeControls(std::string_view text);

// `text` for writing to `stream`: with EscapeControls if that is a terminal, otherwise unchanged.
[[nodiscard]] String TextFor(std::FILE* stream, std::string_view text);

}  // namespace sumlet
