#include "framework/ui/edit_items.h"

#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

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

QString ComposedText(const QPlainTextEdit* area) {
  const QTextLayout* line = area != nullptr ? area->textCursor().block().layout() : nullptr;
  return line != nullptr ? line->preeditAreaText() : QString();
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

void ShowEditMenu(QWidget& control, const QPoint& position) {
  constexpr struct {
    EditCommand command;
    const char* caption;
    const char* keys;
    bool changesText;
    bool beginsGroup = false;
  } items[] = {
      {EditCommand::Undo, "&Undo", "Ctrl+Z", true},
      {EditCommand::Redo, "&Redo", "Ctrl+Shift+Z", true},
      {EditCommand::Cut, "Cu&t", "Ctrl+X", true, true},
      {EditCommand::Copy, "&Copy", "Ctrl+C", false},
      {EditCommand::Paste, "&Paste", "Ctrl+V", true},
      {EditCommand::Clear, "&Delete", "", true},
      {EditCommand::SelectAll, "Select &All", "Ctrl+A", false, true},
  };
  auto* menu = new QMenu(&control);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const auto& item : items) {
    if (item.changesText && StateOf(&control).isReadOnly) continue;
    if (item.beginsGroup && !menu->isEmpty()) menu->addSeparator();
    // The text after a tab is only displayed. A real shortcut would be ambiguous with the one in the Edit menu.
    const QString keys = QKeySequence(QString::fromUtf8(item.keys)).toString(QKeySequence::NativeText);
    QAction* action = menu->addAction(QString::fromUtf8(item.caption) + u'\t' + keys);
    action->setEnabled(CanEdit(&control, item.command));
    QObject::connect(action, &QAction::triggered, &control,
                     [&control, command = item.command] { Edit(&control, command); });
  }
  menu->popup(position);
}

// Does not call the toolkit while nothing is composed, because its Wayland plug-in crashes without an input device. An
// input method that has lost its connection commits nothing, so this function commits the remaining text itself.
void CommitComposition() {
  const QPointer<QPlainTextEdit> area = qobject_cast<QPlainTextEdit*>(QGuiApplication::focusObject());
  if (ComposedText(area).isEmpty()) return;
  QGuiApplication::inputMethod()->commit();
  const QString remaining = ComposedText(area);
  if (remaining.isEmpty()) return;
  QInputMethodEvent event;
  event.setCommitString(remaining);
  QCoreApplication::sendEvent(area, &event);
}

}  // namespace sumlet
