// Chooses a font size at which a text fits into a control. Some controls have a fixed size in pixels, but the user
// chooses the desktop's font. So a text that is too large is drawn smaller instead of being cut.
#pragma once

#include <QFont>
#include <QSize>
#include <QString>

namespace sumlet {

// What must fit vertically: the whole line, or only the ink of its letters. Ink is for text that is drawn centred.
enum class FittedHeight { Line, Ink };

// Returns `font`, made smaller until one line of `text` fits into `space`, in pixels. Stops at 6 points, because
// smaller text is illegible.
[[nodiscard]] QFont FittingFont(QFont font, const QString& text, const QSize& space,
                                FittedHeight height = FittedHeight::Line);

}  // namespace sumlet
