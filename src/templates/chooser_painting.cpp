// The chooser's rows: pale bands, a rule between name and preview, a shade on the selected row.
//
// A template may be megabytes long, and a row is painted at each move of the scroll bar. So the preview lays out no
// more than the cell can show: as many lines as fit into its height, and of one line as many characters as fill the
// cell at one pixel each.
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <list>
#include <vector>

#include "framework/ui/qt_text.h"
#include "templates/win_templates.h"

namespace sumlet {
namespace {

constexpr QColor bandColour(0xEF, 0xF4, 0xFA);
constexpr QColor ruleColour(0xDD, 0xDD, 0xDD);
constexpr QColor shadeColour(0x00, 0x38, 0xB0);
constexpr Int32 previewTextSize = 11;   // pixels
constexpr Int32 previewLeftMargin = 2;  // pixels

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

// The lines of `text`, wrapped at `width`, no more than `enough` of them. The layouts own the lines.
std::vector<QTextLine> WrappedLines(std::string_view text, const QFont& font, Int32 width, std::size_t enough,
                                    std::list<QTextLayout>& layouts) {
  std::vector<QTextLine> lines;
  QTextOption wrapping;
  wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  LineReader paragraphs(text);
  for (std::string_view paragraph; lines.size() < enough && paragraphs.Next(paragraph);) {
    const QString start = ToQString(Left(paragraph, width * static_cast<Int32>(enough)));
    QTextLayout& layout = layouts.emplace_back(start, font);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid() && lines.size() < enough; line = layout.createLine()) {
      line.setLineWidth(width);
      lines.push_back(line);
    }
    layout.endLayout();
  }
  return lines;
}

// Draws `text` (UTF-8, lines ended by EndOfLine) with the painter's font and pen, centred vertically in the cell. Wraps
// long lines. Draws only lines that the cell shows whole, and at least one.
void DrawPreview(CellGraphics& g, std::string_view text) {
  const QFontMetrics metrics = g.painter.fontMetrics();
  const Int32 pitch = std::max(metrics.lineSpacing(), 1);
  const Int32 wholeLines = std::max(g.Height / pitch, 1);
  std::list<QTextLayout> layouts;
  const std::vector<QTextLine> lines = WrappedLines(text, g.painter.font(), std::max(g.Width - previewLeftMargin, 1),
                                                    static_cast<std::size_t>(wholeLines), layouts);
  const Int32 height = pitch * static_cast<Int32>(lines.size());
  Int32 baseline = std::max((g.Height - height) / 2, 0) + metrics.ascent();
  for (const QTextLine& line : lines) {
    line.draw(&g.painter, QPointF(previewLeftMargin, baseline - line.y() - line.ascent()));
    baseline += pitch;
  }
}

}  // namespace

bool winTemplates::list_CellBackgroundPaint(CellGraphics& g, Int32 row, Int32 column) {
  const bool selected = row == list_->ListIndex();
  if (row % 2 == 0 && !selected) g.painter.fillRect(0, 0, g.Width, g.Height, bandColour);
  if (column > 0) g.painter.fillRect(0, 0, 1, g.Height, ruleColour);
  if (selected) {
    if (pOverlay.isNull()) pOverlay = FadingShade(g.Height);
    // Fills line by line, because scaling an image is much slower.
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
