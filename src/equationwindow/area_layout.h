// How an equation window divides its height between the equation and its result.
#pragma once

#include "framework/text/text.h"

namespace sumlet {

// All in pixels, from the top of the window's content.
struct AreaLayout {
  Int32 inputTop;
  Int32 inputHeight;
  Int32 outputTop;
  Int32 outputHeight;
  bool outputScrolls;
};

// `windowHeight` is that of the content, `lineHeight` that of a line of text, `outputLines` the number of display lines
// of the result. The strip is as high as the result plus a fifth of a line, but leaves the equation at least one line.
// The strip's lower border is outside the window.
[[nodiscard]] AreaLayout LayOutAreas(Int32 windowHeight, Int32 lineHeight, Int32 outputLines);

}  // namespace sumlet
