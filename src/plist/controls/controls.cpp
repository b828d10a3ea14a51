// Stores the state of windows and controls in a node, and restores it. A control's key is its object name; its present
// state is the default of a getter, so that the first read stores it. Lists and popup menus of the same name are
// numbered by the property "Index", which counts as 0 where it is missing.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVariant>
#include <string_view>

#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "framework/ui/listbox.h"
#include "framework/ui/qt_text.h"
#include "framework/ui/text_area.h"
#include "framework/ui/window.h"
#include "plist/plist_dict.h"

namespace sumlet {
namespace {

String Name(const QWidget& control) { return control.objectName().toStdString(); }

void StoreWindow(plistDict& node, const Window& window) {
  node.SetString("windowName", window.windowTitle().toStdString());
  if (!node.Exists("WindowPos")) node.AddChild("WindowPos");
  plistDict& bounds = node.child("WindowPos");
  bounds.SetInteger("left", window.Left());
  bounds.SetInteger("top", window.Top());
  bounds.SetInteger("width", window.Width());
  bounds.SetInteger("height", window.Height());
}

// For single-line fields and labels.
template <typename Control>
void RestoreText(plistDict& node, Control& control) {
  control.setText(ToQString(node.GetString(Name(control), control.text().toStdString())));
}

template <typename Button>
void RestoreValue(plistDict& node, Button& button) {
  button.setChecked(node.GetBoolean(Name(button), button.isChecked()));
}

// Of a list or popup menu.
String Key(const QWidget& control) { return Name(control) + "." + Str(control.property("Index").toInt()); }

// Adds an empty entry for a control. Returns its array of rows, or nullptr when a damaged file has two entries.
plistDict* NewEntry(plistDict& node, const String& key, std::string_view selectedText) {
  if (node.Exists(key)) node.Remove(key);
  node.AddChild(key);
  plistDict& entry = node.child(key);
  entry.SetString("default", selectedText);
  return entry.AddArray("elements") ? &entry.child("elements") : nullptr;
}

// The texts of a row's columns; empty for a damaged row.
void FillRow(Listbox& listbox, plistDict& elements, Int32 row) {
  const Int32 listRow = listbox.ListCount();
  if (listbox.ColumnCount() == 1) {
    listbox.AddRow(elements.GetString(Str(row)));
    return;
  }
  listbox.AddRow({});
  plistDict* cells = elements.index(row);
  if (cells == nullptr) return;
  for (Int32 column = 0; column < listbox.ColumnCount() && column < cells->count(); ++column) {
    listbox.SetCell(listRow, column, cells->GetString(Str(column)));
  }
}

}  // namespace

// ---- Windows

void plistDict::SetWindow(std::string_view key, const Window& window) {
  if (!Exists(key)) AddChild(key);
  StoreWindow(child(key), window);
}

// Leaves each property of the window unchanged for which the entry has no value.
void plistDict::GetWindow(std::string_view key, Window& window) {
  if (!Exists(key)) SetWindow(key, window);
  plistDict& node = child(key);
  plistDict& bounds = node.child("WindowPos");
  window.setWindowTitle(ToQString(node.GetString("windowName", window.windowTitle().toStdString())));
  window.SetLeft(bounds.GetInteger("left", window.Left()));
  window.SetTop(bounds.GetInteger("top", window.Top()));
  window.SetWidth(bounds.GetInteger("width", window.Width()));
  window.SetHeight(bounds.GetInteger("height", window.Height()));
}

void plistDict::AppendWindow(const Window& window) {
  if (!CheckArray()) return;
  AppendDict();
  StoreWindow(child(Str(count() - 1)), window);
}

// ---- Single controls

void plistDict::SetEditField(const TextArea& field) { SetString(Name(field), field.Text()); }
void plistDict::GetEditField(TextArea& field) { field.SetText(GetString(Name(field), field.Text())); }

void plistDict::SetTextField(const QLineEdit& field) { SetString(Name(field), field.text().toStdString()); }
void plistDict::GetTextField(QLineEdit& field) { RestoreText(*this, field); }

void plistDict::SetStaticText(const QLabel& label) { SetString(Name(label), label.text().toStdString()); }
void plistDict::GetStaticText(QLabel& label) { RestoreText(*this, label); }

void plistDict::SetCheckbox(const QCheckBox& box) { SetBoolean(Name(box), box.isChecked()); }
void plistDict::GetCheckbox(QCheckBox& box) { RestoreValue(*this, box); }

void plistDict::SetRadio(const QRadioButton& button) { SetBoolean(Name(button), button.isChecked()); }
void plistDict::GetRadio(QRadioButton& button) { RestoreValue(*this, button); }

// ---- Lists and popup menus

void plistDict::SetListbox(const Listbox& listbox) {
  const Int32 selected = listbox.ListIndex();
  plistDict* elements = NewEntry(*this, Key(listbox), selected < 0 ? String() : listbox.Cell(selected, 0));
  for (Int32 row = 0; elements != nullptr && row < listbox.ListCount(); ++row) {
    if (listbox.ColumnCount() == 1) {
      elements->AppendString(listbox.Cell(row, 0));
      continue;
    }
    elements->AppendArray();
    for (Int32 column = 0; column < listbox.ColumnCount(); ++column) {
      elements->index(row)->AppendString(listbox.Cell(row, column));
    }
  }
}

void plistDict::GetListbox(Listbox& listbox, bool select) {
  const String key = Key(listbox);
  if (!Exists(key)) SetListbox(listbox);
  const String selectedText = child(key).GetString("default");
  plistDict& elements = child(key).child("elements");
  const Int32 rows = elements.count();
  for (Int32 row = 0; row < rows; ++row) {
    FillRow(listbox, elements, row);
    const Int32 listRow = listbox.ListCount() - 1;
    if (select && SameText(listbox.Cell(listRow, 0), selectedText)) listbox.SetListIndex(listRow);
  }
}

void plistDict::SetPopup(const QComboBox& popup) {
  plistDict* elements = NewEntry(*this, Key(popup), popup.currentText().toStdString());
  for (int row = 0; elements != nullptr && row < popup.count(); ++row)
    elements->AppendString(popup.itemText(row).toStdString());
}

void plistDict::GetPopup(QComboBox& popup, bool select) {
  const String key = Key(popup);
  if (!Exists(key)) SetPopup(popup);
  const String selectedText = child(key).GetString("default");
  plistDict& elements = child(key).child("elements");
  const Int32 rows = elements.count();
  for (Int32 row = 0; row < rows; ++row) {
    const String text = elements.GetString(Str(row));
    popup.addItem(ToQString(text));
    if (select && SameText(text, selectedText)) popup.setCurrentIndex(popup.count() - 1);
  }
}

// Despite the name, stores the entry under its own key.
void plistDict::AppendListbox(const Listbox& listbox) {
  if (CheckArray()) SetListbox(listbox);
}

void plistDict::AppendPopup(const QComboBox& popup) {
  if (CheckArray()) SetPopup(popup);
}

}  // namespace sumlet
