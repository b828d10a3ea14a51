// Converts text between the logic (UTF-8) and Qt (UTF-16).
#pragma once

#include <QString>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Keeps every character, including U+FEFF at the beginning. A byte that is not UTF-8 becomes U+FFFD.
[[nodiscard]] QString ToQString(std::string_view utf8);
// Keeps every character. Half of a surrogate pair becomes U+FFFD.
[[nodiscard]] String FromQString(const QString& text);

// Returns the beginning of a text for a screen reader, at most 1000 characters, so that a long text does not flood the
// session bus.
[[nodiscard]] QString SpokenText(std::string_view utf8);

}  // namespace sumlet
