// The preview of an equation's text: its first lines, as many as there is room for.
#pragma once

#include <string_view>

#include "framework/ui/listbox.h"

namespace sumlet {

// Draws `text` (UTF-8, lines ended by EndOfLine) with the painter's font and pen, centred vertically in the cell. Long
// lines are wrapped. Draws only lines that the cell shows whole, and at least one. The cost does not grow with the text
// beyond what the cell can show.
void DrawPreview(CellGraphics& g, std::string_view text);

}  // namespace sumlet
