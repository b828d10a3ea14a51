// Makes controls look the same on every desktop: the toolkit's own style, and colours with enough contrast.
#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <QPalette>
#include <QStyle>

namespace sumlet {

// Returns the toolkit's own style, which takes all colours from the palette. Shared by all controls, never destroyed.
[[nodiscard]] QStyle& PlainStyle();

// Returns the highlight colour of `palette`. If its contrast to a button is low, mixes it with the button's text
// colour.
[[nodiscard]] QColor AccentColor(const QPalette& palette);

// The background of selected text and rows.
inline constexpr QColor SelectionColor(0x2A, 0x6F, 0xC9);

// Returns black on white with a grey border, regardless of the desktop's colours. The other colours, such as those of a
// scroll bar, remain the desktop's.
[[nodiscard]] QPalette PaperPalette();

// For areas that are white on every desktop: makes the vertical scroll bar light, even on a dark desktop, and places it
// beside the text, never on top of it.
void UseLightScrollBar(QAbstractScrollArea& area);

}  // namespace sumlet
