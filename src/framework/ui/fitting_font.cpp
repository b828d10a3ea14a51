#include "framework/ui/fitting_font.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <algorithm>

namespace sumlet {

// Letters grow in steps, so the size cannot be computed but only estimated. Sizes well above the estimate are not
// tried: the desktop takes half a millisecond to bring up a size that nobody has asked for before.
QFont FittingFont(QFont font, const QString& text, const QSize& space) {
  constexpr double smallest = 6;  // points
  constexpr double step = 0.5;
  constexpr double error = 1;  // of the estimate, at most
  for (double points = QFontInfo(font).pointSizeF(); points > smallest;) {
    const QFontMetrics metrics(font);
    const double part = std::min(static_cast<double>(space.width()) / std::max(metrics.horizontalAdvance(text), 1),
                                 static_cast<double>(space.height()) / std::max(metrics.height(), 1));
    if (part >= 1) break;
    const double highest = std::max(points * part + error, smallest);
    do points -= step;
    while (points > highest);
    font.setPointSizeF(std::max(points, smallest));
  }
  return font;
}

}  // namespace sumlet
