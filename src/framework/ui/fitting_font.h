// Fits text into controls whose size is fixed in pixels, while the user chooses the desktop's font: draws a text that
// is too large smaller, and never cuts it.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

namespace sumlet {

// What of a line must fit vertically: the whole line, or, where it is drawn centred, only the ink of its letters.
enum class FittedHeight { Line, Ink };

// `font`, made smaller until one line of `text` fits into `space`, in pixels. It is not made smaller than 6 points,
// below which nothing can be read.
[[nodiscard]] QFont FittingFont(QFont font, const QString& text, const QSize& space,
                                FittedHeight height = FittedHeight::Line);

}  // namespace sumlet
