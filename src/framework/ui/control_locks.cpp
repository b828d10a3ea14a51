#include "framework/ui/control_locks.h"

#include <algorithm>

namespace sumlet {
namespace {

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

QRect LockedBounds(const QRect& bounds, const QSize& before, const QSize& after, Locks locks) {
  const QSize growth = after - before;
  const Span x =
      LockedSpan({bounds.x(), bounds.width()}, growth.width(), locks.testFlag(Lock::Left), locks.testFlag(Lock::Right));
  const Span y = LockedSpan({bounds.y(), bounds.height()}, growth.height(), locks.testFlag(Lock::Top),
                            locks.testFlag(Lock::Bottom));
  return {x.start, y.start, x.length, y.length};
}

}  // namespace sumlet
