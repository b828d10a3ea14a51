#include "framework/ui/fitting_font.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QRect>
#include <algorithm>

namespace sumlet {
namespace {

// The height of the box that the ink of `text` needs when its line is centred in it: the ink may reach farther on one
// side of the line's middle than on the other. Captions without descenders all take the same height.
int InkHeight(const QFontMetrics& metrics, const QString& text) {
  const QRect ink = metrics.tightBoundingRect(text + QStringLiteral("Hl"));  // relative to the baseline, downwards
  const int middle = metrics.height() / 2 - metrics.ascent();
  return 2 * std::max(middle - ink.top(), ink.bottom() + 1 - middle);
}

}  // namespace

// Letters grow in steps, so the size cannot be computed but only estimated. Sizes well above the estimate are not
// tried: the desktop takes half a millisecond to bring up a size that nobody has asked for before.
QFont FittingFont(QFont font, const QString& text, const QSize& space, FittedHeight height) {
  constexpr double smallest = 6;  // points
  constexpr double step = 0.5;
  constexpr double error = 1;  // of the estimate, at most
  for (double points = QFontInfo(font).pointSizeF(); points > smallest;) {
    const QFontMetrics metrics(font);
    const int needed = height == FittedHeight::Ink ? InkHeight(metrics, text) : metrics.height();
    const double part = std::min(static_cast<double>(space.width()) / std::max(metrics.horizontalAdvance(text), 1),
                                 static_cast<double>(space.height()) / std::max(needed, 1));
    if (part >= 1) break;
    const double highest = std::max(points * part + error, smallest);
    do points -= step;
    while (points > highest);
    font.setPointSizeF(std::max(points, smallest));
  }
  return font;
}

}  // namespace sumlet
