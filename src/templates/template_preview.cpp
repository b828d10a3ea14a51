// A template may be megabytes long, and a row is drawn at each move of the scroll bar. So no more is laid out than the
// cell can show: as many lines as it is high, and of one line as many characters as fill the cell, since none that is
// seen is narrower than a pixel.
#include "templates/template_preview.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <list>

#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

constexpr Int32 leftMargin = 2;  // pixels

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

}  // namespace

void DrawPreview(CellGraphics& g, std::string_view text) {
  const QFontMetrics metrics = g.painter.fontMetrics();
  const Int32 pitch = std::max(metrics.lineSpacing(), 1);
  const Int32 wholeLines = std::max(g.Height / pitch, 1);
  std::list<QTextLayout> layouts;
  const std::vector<QTextLine> lines = WrappedLines(text, g.painter.font(), std::max(g.Width - leftMargin, 1),
                                                    static_cast<std::size_t>(wholeLines), layouts);
  const Int32 height = pitch * static_cast<Int32>(lines.size());
  Int32 baseline = std::max((g.Height - height) / 2, 0) + metrics.ascent();
  for (const QTextLine& line : lines) {
    line.draw(&g.painter, QPointF(leftMargin, baseline - line.y() - line.ascent()));
    baseline += pitch;
  }
}

}  // namespace sumlet
