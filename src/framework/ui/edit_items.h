// The Edit commands on the text control that has the focus.
#pragma once

class QPoint;
class QWidget;

namespace sumlet {

enum class EditCommand { Undo, Redo, Cut, Copy, Paste, Clear, SelectAll };

// Whether `control` is a text control that can run the command now. False for nullptr and for other controls.
[[nodiscard]] bool CanEdit(QWidget* control, EditCommand command);

// Runs the command. Does nothing if CanEdit returns false.
void Edit(QWidget* control, EditCommand command);

// Opens a context menu with the commands that apply to `control`, at a screen position in pixels. Each item shows its
// shortcut in the Edit menu.
void ShowEditMenu(QWidget& control, const QPoint& position);

// Commits the text that an input method is composing in the text area with the focus.
void CommitComposition();

}  // namespace sumlet
