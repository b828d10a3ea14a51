// The text on the clipboard. The window program installs handlers for the desktop's clipboard.
#pragma once

#include <functional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Without handlers, use a text inside the program, which is empty at start.
[[nodiscard]] String ClipboardText();
void SetClipboardText(std::string_view text);

struct ClipboardHandlers {
  std::function<String()> Text;
  std::function<void(std::string_view text)> SetText;
};
void SetClipboardHandlers(ClipboardHandlers handlers);

}  // namespace sumlet
