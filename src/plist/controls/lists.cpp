// Stores the rows of lists and popup menus in a node, and restores them. Controls of the same name are numbered by the
// property "Index"; a control without it counts as 0.
#include <QComboBox>
#include <QVariant>

#include "framework/text/numbers.h"
#include "framework/ui/listbox.h"
#include "framework/ui/qt_text.h"
#include "plist/plist_dict.h"

namespace sumlet {
namespace {

String Key(const QWidget& control) {
  return control.objectName().toStdString() + "." + Str(control.property("Index").toInt());
}

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
