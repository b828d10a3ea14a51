// Locks: which edges of its window a control keeps its distance to when the window changes its size.
#pragma once

#include <QFlags>
#include <QRect>
#include <QSize>

namespace sumlet {

enum class Lock { Left = 1, Top = 2, Right = 4, Bottom = 8 };
Q_DECLARE_FLAGS(Locks, Lock)
Q_DECLARE_OPERATORS_FOR_FLAGS(Locks)

// Where a control at `bounds` stands after its window's content went from the size `before` to `after`, in pixels.
// Locked to two opposite edges it grows and shrinks, never below nothing; locked to the right or bottom edge alone it
// moves; without either it stays.
[[nodiscard]] QRect LockedBounds(const QRect& bounds, const QSize& before, const QSize& after, Locks locks);

}  // namespace sumlet
