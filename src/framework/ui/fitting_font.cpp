#include "framework/ui/fitting_font.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QRect>
#include <algorithm>

namespace sumlet {
namespace {

// Returns the height of a box that contains the ink of `text` when the line is centred in the box. The ink may extend
// farther above the middle of the line than below it. Adds "Hl", so that all captions without descenders have the same
// height.
int InkHeight(const QFontMetrics& metrics, const QString& text) {
  const QRect ink = metrics.tightBoundingRect(text + QStringLiteral("Hl"));  // relative to the baseline, downwards
  const int middle = metrics.height() / 2 - metrics.ascent();
  return 2 * std::max(middle - ink.top(), ink.bottom() + 1 - middle);
}

}  // namespace

// The width of a text is not proportional to the font size, because of hinting. So this estimates the size and then
// tries smaller ones. It skips sizes well above the estimate, because the first use of a size takes half a millisecond.
QFont FittingFont(QFont font, const QString& text, const QSize& space, FittedHeight height) {
  constexpr double smallest = 6;  // points
  constexpr double step = 0.5;
  constexpr double error = 1;  // the largest error of the estimate, in points
  for (double points = QFontInfo(font).pointSizeF(); points > smallest;) {
    const QFontMetrics metrics(font);
    const int needed = height == FittedHeight::Ink ? InkHeight(metrics, text) : metrics.height();
    const double scale = std::min(static_cast<double>(space.width()) / std::max(metrics.horizontalAdvance(text), 1),
                                  static_cast<double>(space.height()) / std::max(needed, 1));
    if (scale >= 1) break;
    const double highest = std::max(points * scale + error, smallest);
    do points -= step;
    while (points > highest);
    font.setPointSizeF(std::max(points, smallest));
  }
  return font;
}

}  // namespace sumlet
