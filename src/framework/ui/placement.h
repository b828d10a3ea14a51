// Where a new window lands, and where its controls go when it changes its size.
#pragma once

#include <QFlags>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>
#include <vector>

namespace sumlet {

enum class Placement {
  Default = 0,   // where the desktop puts it
  Centred = 3,   // in the middle of the screen
  Staggered = 4  // offset from the staggered window before it
};

// How far a staggered window lands right of and below the one before it, in pixels: about the height of a title bar, so
// that the titles of all of them can be read and clicked.
inline constexpr int StaggerStep = 24;

// The top left corner of a staggered window of `size` (frame included), in pixels. It begins near the corner of
// `screen` and goes on from `previous`; where the window would leave the screen, that direction begins anew. Without a
// previous corner on this screen it is the first. A window larger than the screen stands at its corner. Passes over
// places within half a step of a corner in `taken`, as long as the screen has others.
[[nodiscard]] QPoint StaggeredCorner(const QSize& size, const QRect& screen, std::optional<QPoint> previous,
                                     const std::vector<QPoint>& taken = {});

// The top left corner of a centred window of `size`, and of a sheet that hangs below the title bar of a window whose
// content takes `parent`, in pixels. Where it would leave the screen it is moved inside; what is larger than the screen
// stands at its corner.
[[nodiscard]] QPoint CentredCorner(const QSize& size, const QRect& screen);
[[nodiscard]] QPoint SheetCorner(const QSize& size, const QRect& parent, const QRect& screen);

// The edges of its window to which a control keeps its distance when the window changes its size.
enum class Lock { Left = 1, Top = 2, Right = 4, Bottom = 8 };
Q_DECLARE_FLAGS(Locks, Lock)
Q_DECLARE_OPERATORS_FOR_FLAGS(Locks)

// Where a control at `bounds` stands after its window's content went from the size `before` to `after`, in pixels.
// Locked to two opposite edges it grows and shrinks, never below nothing; locked to the right or bottom edge alone it
// moves; without either it stays.
[[nodiscard]] QRect LockedBounds(const QRect& bounds, const QSize& before, const QSize& after, Locks locks);

}  // namespace sumlet
