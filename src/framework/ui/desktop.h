// The desktop behind the hooks of framework/: shows messages and questions as alerts, opens web addresses in the
// browser, and shares the clipboard.
#pragma once

#include <QString>
#include <string_view>

namespace sumlet {

// Makes MsgBox and MessageDialog show alerts. An alert belongs to the active window and shows its text without
// interpreting any markup. Until the user answers it, it blocks the program except for timers and painting. When the
// program quits, an open alert closes without an answer, and no other opens.
void InstallDialogs();

// Makes ShowURL open addresses with the desktop's program for them. Drops what is no valid URL with a scheme.
void InstallBrowser();

// Makes ClipboardText and SetClipboardText use the desktop's clipboard.
void InstallClipboard();

// Returns what an alert shows of a text: at most 1000 characters in 20 lines, "…" where something was cut, no control
// characters, and a place to break in every word that is too long for a line.
[[nodiscard]] QString AlertText(std::string_view text);

}  // namespace sumlet
