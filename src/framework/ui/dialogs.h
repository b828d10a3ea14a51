// Dialogs: shows the program's messages and questions as alerts of the desktop.
#pragma once

#include <QString>
#include <string_view>

namespace sumlet {

// From here on MsgBox and MessageDialog show alerts. An alert belongs to the active window, shows its text as it is,
// without any markup, and holds up the program, timers and painting excepted, until it is answered. Once the program
// quits, an alert that stands goes without an answer and no other comes up.
void InstallDialogs();

// What an alert shows of a text: at most 1000 characters in 20 lines, "…" where something was cut, no control
// characters, and a place to break in every word that is too long for a line.
[[nodiscard]] QString AlertText(std::string_view text);

}  // namespace sumlet
