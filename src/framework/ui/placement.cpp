#include "framework/ui/placement.h"

#include <algorithm>

namespace sumlet {
namespace {

int Next(int previous, int size, int begin, int end) {
  const int last = std::max(begin, end - size);
  const int next = previous + StaggerStep;
  return next <= last ? next : std::min(begin + StaggerStep, last);
}

}  // namespace

QPoint StaggeredCorner(const QSize& size, const QRect& screen, std::optional<QPoint> previous) {
  const QPoint from = previous && screen.contains(*previous) ? *previous : screen.topLeft();
  return {Next(from.x(), size.width(), screen.x(), screen.x() + screen.width()),
          Next(from.y(), size.height(), screen.y(), screen.y() + screen.height())};
}

QPoint CentredCorner(const QSize& size, const QRect& screen) {
  return SheetCorner(size, screen, screen) + QPoint(0, std::max((screen.height() - size.height()) / 2, 0));
}

QPoint SheetCorner(const QSize& size, const QRect& parent, const QRect& screen) {
  const int left = parent.x() + (parent.width() - size.width()) / 2;
  const auto inside = [](int wanted, int length, int begin, int screenLength) {
    return std::max(std::min(wanted, begin + screenLength - length), begin);
  };
  return {inside(left, size.width(), screen.x(), screen.width()),
          inside(parent.y(), size.height(), screen.y(), screen.height())};
}

}  // namespace sumlet
