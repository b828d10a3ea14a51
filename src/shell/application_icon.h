// The program's icon, for its windows, the status tray and the About window.
#pragma once

#include <QIcon>

namespace sumlet {

// All sizes from 16 to 256 pixels. Requires the application object.
[[nodiscard]] QIcon ApplicationIcon();

// The sizes up to 64 pixels, which title bars and task lists show. Each new window sends all sizes to the display
// twice; with the large ones, that would take most of the time of opening a window.
[[nodiscard]] QIcon WindowIcon();

}  // namespace sumlet
