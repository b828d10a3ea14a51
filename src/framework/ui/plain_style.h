// What makes controls look alike on every desktop: the toolkit's own style, and an accent that can be seen.
#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <QPalette>
#include <QStyle>

namespace sumlet {

// Takes all colours from the palette. Shared by all controls and never destroyed.
[[nodiscard]] QStyle& PlainStyle();

// The desktop's highlight colour, mixed with that of texts where it would not stand out from a control's background.
[[nodiscard]] QColor AccentColor(const QPalette& palette);

inline constexpr QColor SelectionColor(0x2A, 0x6F, 0xC9);

// Black on white with a grey border, whatever the desktop's colours. The palette leaves the other colours, such as
// those of a scroll bar, to the desktop.
[[nodiscard]] QPalette PaperPalette();

// For an area that is white whatever the desktop's colours: draws its vertical scroll bar in light colours, also on a
// dark desktop, and beside the text, never on it.
void UseLightScrollBar(QAbstractScrollArea& area);

}  // namespace sumlet
