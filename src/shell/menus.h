// The program's menus: which items there are, and what the Edit items act on.
#pragma once

#include "framework/ui/menu_bar.h"

namespace sumlet {

// The one menu bar. Made at the first call; it needs the running toolkit.
[[nodiscard]] MenuBar& MenuBar1();

}  // namespace sumlet
