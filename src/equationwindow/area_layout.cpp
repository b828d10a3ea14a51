#include "equationwindow/area_layout.h"

#include "framework/text/mathematics.h"
#include "framework/text/numbers.h"

namespace sumlet {
namespace {

constexpr Int32 inputTop = -1;       // its upper border is outside
constexpr double paddingPart = 0.2;  // of a line
constexpr Int32 overhang = 1;        // of the strip's lower border
constexpr Int32 gap = 2;             // between the areas

}  // namespace

AreaLayout LayOutAreas(Int32 windowHeight, Int32 lineHeight, Int32 outputLines) {
  const double height = lineHeight;
  const Int32 padding = ToInt32(height * paddingPart);
  AreaLayout layout{};
  layout.inputTop = inputTop;
  layout.outputScrolls = outputLines > 1;
  layout.outputHeight = ToInt32(Max(height, outputLines * height) + padding);
  layout.outputTop = windowHeight - layout.outputHeight + overhang;
  layout.inputHeight = layout.outputTop - inputTop - gap;
  if (layout.inputHeight < lineHeight) {
    layout.inputHeight = lineHeight;
    layout.outputTop = inputTop + lineHeight + gap;
    layout.outputHeight = windowHeight - layout.outputTop;
  }
  return layout;
}

}  // namespace sumlet
