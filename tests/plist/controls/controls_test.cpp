// Controls and windows in a tree, and back into others of the same name.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "framework/ui/listbox.h"
#include "framework/ui/text_area.h"
#include "framework/ui/window.h"
#include "plist/plist_dict.h"
#include "plist/tree_text.h"

namespace sumlet {
namespace {

class TestWindow : public Window {
 public:
  TestWindow() { Create(false); }
};

template <typename Control>
Control* Named(Control* control) {
  control->setObjectName(QStringLiteral("name"));
  return control;
}

TEST(PropertyListControls, AWindowComesBackWithItsTitleAndPlace) {
  auto* window = new TestWindow;
  window->setWindowTitle(QStringLiteral("Title"));
  window->SetLeft(30);
  plistDict node;
  node.GetWindow("w", *window);
  window->setWindowTitle(QStringLiteral("other"));
  window->SetLeft(1);
  node.GetWindow("W", *window);
  EXPECT_EQ(window->windowTitle(), "Title");
  EXPECT_EQ(window->Left(), 30);
  window->Close();
}

TEST(PropertyListControls, ListsComeBackWithTheirRowsAndSelection) {
  QWidget parent;
  Listbox& list = *Named(new Listbox(&parent));
  list.setProperty("Index", 3);
  list.AddRow("a", "b");
  list.AddRow("c", "d");
  list.SetListIndex(1);
  QComboBox& popup = *Named(new QComboBox(&parent));
  popup.addItems({QStringLiteral("x"), QStringLiteral("y")});
  popup.setCurrentIndex(1);
  plistDict node;
  node.SetListbox(list);
  node.SetPopup(popup);
  EXPECT_EQ(TreeText(node.child("name.3")),
            "default:string=c, elements:array[0:array[0:string=a, 1:string=b], 1:array[0:string=c, 1:string=d]]");
  EXPECT_EQ(TreeText(node.child("name.0")), "default:string=y, elements:array[0:string=x, 1:string=y]");

  list.DeleteAllRows();
  popup.clear();
  node.GetListbox(list, true);
  node.GetPopup(popup, true);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.Cell(1, 0) + list.Cell(1, 1), "cd");
  EXPECT_EQ(popup.currentText(), QStringLiteral("y"));
}

// What a control shows is the default, so that the first read stores it and the second one brings it back.
TEST(PropertyListControls, SingleControlsComeBack) {
  QWidget parent;
  TextArea& area = *Named(new TextArea(&parent));
  QLineEdit& field = *Named(new QLineEdit(&parent));
  QLabel& label = *Named(new QLabel(&parent));
  QCheckBox& box = *Named(new QCheckBox(&parent));
  QRadioButton& radio = *Named(new QRadioButton(&parent));
  plistDict nodes[5];
  for (const bool first : {true, false}) {
    area.SetText(first ? "é\n2" : "other");
    field.setText(first ? QStringLiteral("é") : QStringLiteral("other"));
    label.setText(field.text());
    box.setChecked(first);
    radio.setChecked(first);
    nodes[0].GetEditField(area);
    nodes[1].GetTextField(field);
    nodes[2].GetStaticText(label);
    nodes[3].GetCheckbox(box);
    nodes[4].GetRadio(radio);
  }
  EXPECT_EQ(area.Text(), "é\n2");
  EXPECT_EQ(field.text(), QStringLiteral("é"));
  EXPECT_EQ(label.text(), QStringLiteral("é"));
  EXPECT_TRUE(box.isChecked());
  EXPECT_TRUE(radio.isChecked());
}

}  // namespace
}  // namespace sumlet
