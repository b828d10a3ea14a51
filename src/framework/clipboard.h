// The text on the clipboard. Whose clipboard that is, is decided at start: the window program takes the desktop's.
#pragma once

#include <functional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Without handlers the clipboard is a text of the program's own, empty at start.
[[nodiscard]] String ClipboardText();
void SetClipboardText(std::string_view text);

struct ClipboardHandlers {
  std::function<String()> Text;
  std::function<void(std::string_view text)> SetText;
};
void SetClipboardHandlers(ClipboardHandlers handlers);

}  // namespace sumlet
