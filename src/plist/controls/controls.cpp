// Stores the state of windows and single controls in a node, and restores it. A control's key is its object name. Its
// present state is the default of a getter, so that the first read stores it.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

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

}  // namespace

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

}  // namespace sumlet
