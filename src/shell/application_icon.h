// The icon of the program, for its windows, the status tray and the window about it.
#pragma once

#include <QIcon>

namespace sumlet {

// The drawing in every size from 16 to 256 pixels. Needs the application object.
[[nodiscard]] QIcon ApplicationIcon();

}  // namespace sumlet
