// The program's menus: their items, what the Edit items act on, and the list of windows in the Window menu.
#pragma once

#include "framework/ui/menu_bar.h"

class QMenu;

namespace sumlet {

// The only menu bar. The first call creates it, and requires the running toolkit.
[[nodiscard]] MenuBar& MenuBar1();

namespace MyWindowManager {

// Updates the entries after the three fixed ones to the open windows: removes those of closed windows, appends those of
// new ones, and ticks the front window. When several equation windows are open, each entry shows the first line of its
// equation, as all of them have the same title. An entry keeps its position as long as its window lives.
void BuildWindowMenu(QMenu& windowMenu);

}  // namespace MyWindowManager

}  // namespace sumlet
