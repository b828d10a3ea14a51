// The icon of the program, for its windows, the status tray and the window about it.
#pragma once

#include <QIcon>

namespace sumlet {

// The drawing in every size from 16 to 256 pixels. Needs the application object.
[[nodiscard]] QIcon ApplicationIcon();

// The sizes that title bars and lists of windows show, up to 64 pixels. Each window sends all of them to the display
// twice when it is made, and with the large ones that would be most of what making a window takes.
[[nodiscard]] QIcon WindowIcon();

}  // namespace sumlet
