// The preview of an equation's text: its first lines, as many as there is room for.
#pragma once

#include <string_view>

#include "framework/ui/listbox.h"

namespace sumlet {

// Draws `text` (UTF-8, lines ended by EndOfLine) with the painter's font and pen. It stands in the middle of the cell's
// height until it is higher than the cell; from then on it begins at the top and is cut at the bottom. Long lines
// are wrapped. The cost does not grow with the text beyond what the cell can show.
void DrawPreview(CellGraphics& g, std::string_view text);

}  // namespace sumlet
