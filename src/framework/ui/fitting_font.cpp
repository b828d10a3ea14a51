#include "framework/ui/fitting_font.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <algorithm>

namespace sumlet {

// Letters grow in steps, so the size cannot be computed.
QFont FittingFont(QFont font, const QString& text, const QSize& space) {
  constexpr double smallest = 6;  // points
  constexpr double step = 0.5;
  for (double points = QFontInfo(font).pointSizeF(); points > smallest; points -= step) {
    const QFontMetrics metrics(font);
    if (metrics.horizontalAdvance(text) <= space.width() && metrics.height() <= space.height()) break;
    font.setPointSizeF(std::max(points - step, smallest));
  }
  return font;
}

}  // namespace sumlet
