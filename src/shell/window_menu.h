// The list of open windows at the end of the Window menu.
#pragma once

#include <QMenu>

namespace sumlet::MyWindowManager {

// Brings the entries behind the three fixed ones in line with the open windows: takes out what has gone, appends what
// is new, ticks the front window. Where several equation windows are open, each entry shows the first line of its
// equation, as all of them have the same title. An entry keeps its place as long as its window lives.
void BuildWindowMenu(QMenu& windowMenu);

}  // namespace sumlet::MyWindowManager
