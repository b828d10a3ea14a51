// How the rows of the chooser look: pale bands, a rule between name and preview, a shade on the selected row.
#include <QPainter>

#include "templates/template_preview.h"
#include "templates/win_templates.h"

namespace sumlet {
namespace {

constexpr QColor bandColour(0xEF, 0xF4, 0xFA);
constexpr QColor ruleColour(0xDD, 0xDD, 0xDD);
constexpr QColor shadeColour(0x00, 0x38, 0xB0);
constexpr Int32 previewTextSize = 11;  // pixels

// Deep blue behind a mask that lets less of it through from top to bottom.
QImage FadingShade(Int32 height) {
  constexpr double maskAtTop = 175;
  constexpr double maskAtBottom = 255;
  QImage shade(1, height, QImage::Format_ARGB32);
  for (Int32 y = 0; y < height; ++y) {
    const double t = static_cast<double>(y) / height;
    const int mask = static_cast<int>(maskAtTop * (1 - t) + maskAtBottom * t);
    shade.setPixelColor(0, y, QColor(shadeColour.red(), shadeColour.green(), shadeColour.blue(), 255 - mask));
  }
  return shade;
}

}  // namespace

bool winTemplates::list_CellBackgroundPaint(CellGraphics& g, Int32 row, Int32 column) {
  const bool selected = row == list_->ListIndex();
  if (row % 2 == 0 && !selected) g.painter.fillRect(0, 0, g.Width, g.Height, bandColour);
  if (column > 0) g.painter.fillRect(0, 0, 1, g.Height, ruleColour);
  if (selected) {
    if (pOverlay.isNull()) pOverlay = FadingShade(g.Height);
    // Line by line, since stretching a picture looks at each of its points with great care.
    for (Int32 y = 0; y < g.Height; ++y)
      g.painter.fillRect(0, y, g.Width, 1, pOverlay.pixelColor(0, y * pOverlay.height() / g.Height));
  }
  g.painter.setPen(Qt::black);  // on a pale background also where the row is selected
  return true;
}

bool winTemplates::list_CellTextPaint(CellGraphics& g, Int32 row, Int32 column) {
  if (column != 1) return false;
  QFont font = g.painter.font();
  font.setPixelSize(previewTextSize);
  g.painter.setFont(font);
  DrawPreview(g, list_->Cell(row, column));
  return true;
}

}  // namespace sumlet
