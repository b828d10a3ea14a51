// The desktop's services for the hooks of framework/desktop.h.
#pragma once

#include <QString>
#include <string_view>
#include <vector>

#include "framework/hook.h"

namespace sumlet {

// Implements the hooks while the guards live:
//
// MsgBox and MessageDialog show alerts. An alert belongs to the active window and shows its text without
// interpreting any markup. Until the user answers it, it blocks the program except for timers and painting. When the
// program quits, an open alert closes without an answer, and no other opens.
//
// ShowURL opens addresses with the desktop's program for them. Drops what is no valid URL with a scheme.
//
// ClipboardText and SetClipboardText use the desktop's clipboard.
[[nodiscard]] std::vector<HookGuard> InstallDesktop();

// Returns what an alert shows of a text: at most 1000 characters in 20 lines, "…" where something was cut, no control
// characters, and a place to break in every word that is too long for a line.
[[nodiscard]] QString AlertText(std::string_view text);

}  // namespace sumlet
