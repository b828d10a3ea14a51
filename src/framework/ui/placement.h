// Positions of new windows, and of controls in a window that changes its size.
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

// Returns the top left corner of a staggered window of `size` (frame included), in pixels: one step from `previous`, or
// from the corner of `screen` if there is none on this screen. A direction in which the window would leave the screen
// restarts. A window larger than the screen is at its corner. Avoids places within half a step of a corner in `taken`
// if the screen has others.
[[nodiscard]] QPoint StaggeredCorner(const QSize& size, const QRect& screen, std::optional<QPoint> previous,
                                     const std::vector<QPoint>& taken = {});

// Return the top left corner of a centred window of `size`, and of a sheet below the title bar of a window with the
// content `parent`, in pixels. Both are moved to be on the screen; a window larger than the screen is at its corner.
[[nodiscard]] QPoint CentredCorner(const QSize& size, const QRect& screen);
[[nodiscard]] QPoint SheetCorner(const QSize& size, const QRect& parent, const QRect& screen);

// The edges of its window to which a control keeps its distance when the window changes its size.
enum class Lock { Left = 1, Top = 2, Right = 4, Bottom = 8 };
Q_DECLARE_FLAGS(Locks, Lock)
Q_DECLARE_OPERATORS_FOR_FLAGS(Locks)

// Returns the bounds of a control, at `bounds` before, after its window's content has changed from the size `before` to
// `after`, in pixels. A control locked to two opposite edges grows and shrinks, at least to 0. A control locked to the
// right or bottom edge only moves.
[[nodiscard]] QRect LockedBounds(const QRect& bounds, const QSize& before, const QSize& after, Locks locks);

}  // namespace sumlet
