#include "framework/ui/placement.h"

#include <algorithm>
#include <cstdlib>

namespace sumlet {
namespace {

int Next(int previous, int size, int begin, int end) {
  const int last = std::max(begin, end - size);
  const int next = previous + StaggerStep;
  return next <= last ? next : std::min(begin + StaggerStep, last);
}

struct Span {
  int start;
  int length;
};

Span LockedSpan(Span span, int growth, bool nearEdge, bool farEdge) {
  if (!farEdge) return span;
  if (nearEdge) return {span.start, std::max(span.length + growth, 0)};
  return {span.start + growth, span.length};
}

}  // namespace

// The corners run diagonally and come back to the first one before the screen is full. Then the next diagonal follows.
QPoint StaggeredCorner(const QSize& size, const QRect& screen, std::optional<QPoint> previous,
                       const std::vector<QPoint>& taken) {
  const auto nextX = [&](int x) { return Next(x, size.width(), screen.x(), screen.x() + screen.width()); };
  const auto nextY = [&](int y) { return Next(y, size.height(), screen.y(), screen.y() + screen.height()); };
  const auto isFree = [&taken](const QPoint& corner) {
    return std::none_of(taken.begin(), taken.end(), [&corner](const QPoint& other) {
      const QPoint distance = other - corner;
      return std::max(std::abs(distance.x()), std::abs(distance.y())) < StaggerStep / 2;
    });
  };
  const QPoint from = previous && screen.contains(*previous) ? *previous : screen.topLeft();
  const QPoint first(nextX(from.x()), nextY(from.y()));
  QPoint diagonal = first;
  QPoint corner = first;
  // Each taken corner excludes one place.
  for (std::size_t i = 0; !isFree(corner) && i < taken.size(); ++i) {
    corner = {nextX(corner.x()), nextY(corner.y())};
    if (corner == diagonal) diagonal = corner = {nextX(corner.x()), corner.y()};
  }
  return isFree(corner) ? corner : first;
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

QRect LockedBounds(const QRect& bounds, const QSize& before, const QSize& after, Locks locks) {
  const QSize growth = after - before;
  const Span x =
      LockedSpan({bounds.x(), bounds.width()}, growth.width(), locks.testFlag(Lock::Left), locks.testFlag(Lock::Right));
  const Span y = LockedSpan({bounds.y(), bounds.height()}, growth.height(), locks.testFlag(Lock::Top),
                            locks.testFlag(Lock::Bottom));
  return {x.start, y.start, x.length, y.length};
}

}  // namespace sumlet
