// The Edit commands on the text control that has the focus.
#pragma once

class QPoint;
class QWidget;

namespace sumlet {

enum class EditCommand { Undo, Redo, Cut, Copy, Paste, Clear, SelectAll };

// Whether `control` is a text control that could do the command now. nullptr and other controls can do none.
[[nodiscard]] bool CanEdit(QWidget* control, EditCommand command);

// Does the command; nothing where CanEdit is false.
void Edit(QWidget* control, EditCommand command);

// Opens a context menu of the commands that fit `control`, at a place of the screen in pixels. Each shows the keys that
// it has in the Edit menu.
void ShowEditMenu(QWidget& control, const QPoint& place);

// Commits the text that an input method is composing in the text area with the focus.
void CommitComposition();

}  // namespace sumlet
