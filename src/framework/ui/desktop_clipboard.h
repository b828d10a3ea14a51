// The desktop's clipboard for the parts of the program that know no toolkit.
#pragma once

namespace sumlet {

// From here on ClipboardText and SetClipboardText work on the desktop's clipboard.
void InstallClipboard();

}  // namespace sumlet
