#include "framework/ui/edit_items.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace sumlet {
namespace {

struct TextState {
  bool canUndo = false;
  bool canRedo = false;
  bool hasSelection = false;
  bool isReadOnly = true;
  bool isEmpty = true;
};

bool ClipboardHasText() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasText();
}

TextState StateOf(QWidget* control) {
  if (const auto* area = qobject_cast<QPlainTextEdit*>(control)) {
    return {area->document()->isUndoAvailable(), area->document()->isRedoAvailable(), area->textCursor().hasSelection(),
            area->isReadOnly(), area->document()->isEmpty()};
  }
  if (const auto* field = qobject_cast<QLineEdit*>(control)) {
    return {field->isUndoAvailable(), field->isRedoAvailable(), field->hasSelectedText(), field->isReadOnly(),
            field->text().isEmpty()};
  }
  return {};
}

void EditArea(QPlainTextEdit& area, EditCommand command) {
  switch (command) {
    case EditCommand::Undo:
      return area.undo();
    case EditCommand::Redo:
      return area.redo();
    case EditCommand::Cut:
      return area.cut();
    case EditCommand::Copy:
      return area.copy();
    case EditCommand::Paste:
      return area.paste();
    case EditCommand::Clear:
      return area.textCursor().removeSelectedText();
    case EditCommand::SelectAll:
      return area.selectAll();
  }
}

void EditField(QLineEdit& field, EditCommand command) {
  switch (command) {
    case EditCommand::Undo:
      return field.undo();
    case EditCommand::Redo:
      return field.redo();
    case EditCommand::Cut:
      return field.cut();
    case EditCommand::Copy:
      return field.copy();
    case EditCommand::Paste:
      return field.paste();
    case EditCommand::Clear:
      return field.del();
    case EditCommand::SelectAll:
      return field.selectAll();
  }
}

}  // namespace

bool CanEdit(QWidget* control, EditCommand command) {
  const TextState state = StateOf(control);
  switch (command) {
    case EditCommand::Undo:
      return state.canUndo && !state.isReadOnly;
    case EditCommand::Redo:
      return state.canRedo && !state.isReadOnly;
    case EditCommand::Cut:
    case EditCommand::Clear:
      return state.hasSelection && !state.isReadOnly;
    case EditCommand::Copy:
      return state.hasSelection;
    case EditCommand::Paste:
      return !state.isReadOnly && ClipboardHasText();
    case EditCommand::SelectAll:
      return !state.isEmpty;
  }
  return false;
}

void Edit(QWidget* control, EditCommand command) {
  if (!CanEdit(control, command)) return;
  if (auto* area = qobject_cast<QPlainTextEdit*>(control)) EditArea(*area, command);
  if (auto* field = qobject_cast<QLineEdit*>(control)) EditField(*field, command);
}

}  // namespace sumlet
