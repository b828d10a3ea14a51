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
  TestWindow() {
    SetSizeLimits({50, 40}, {2000, 2000});
    Create(false);
    setWindowTitle(QStringLiteral("Title"));
  }
};

template <typename Control>
Control* Named(Control* control) {
  control->setObjectName(QStringLiteral("name"));
  return control;
}

TEST(PropertyListControls, Windows) {
  auto* window = new TestWindow;
  window->SetLeft(30);
  window->SetTop(40);
  window->SetWidth(300);
  window->SetHeight(200);
  const char* stored =
      "windowName:string=Title, WindowPos:dict{left:integer=30, top:integer=40, width:integer=300, height:integer=200}";
  plistDict node;
  node.GetWindow("w", *window);
  EXPECT_EQ(TreeText(node.child("w")), stored);

  window->SetLeft(1);
  window->SetWidth(100);
  window->setWindowTitle(QStringLiteral("other"));
  node.GetWindow("W", *window);
  EXPECT_EQ(window->Left(), 30);
  EXPECT_EQ(window->Top(), 40);
  EXPECT_EQ(window->Width(), 300);
  EXPECT_EQ(window->Height(), 200);
  EXPECT_EQ(window->windowTitle(), "Title");

  node.AddArray("a");
  node.child("a").AppendWindow(*window);
  node.AppendWindow(*window);
  EXPECT_EQ(TreeText(node.child("a")), "0:dict{" + String(stored) + "}");
  EXPECT_EQ(node.count(), 2);
  window->Close();
}

TEST(PropertyListControls, Lists) {
  QWidget parent;
  Listbox& one = *Named(new Listbox(&parent, 1));
  Listbox& two = *Named(new Listbox(&parent));
  two.setProperty("Index", 3);
  plistDict node;
  one.AddRow("old");
  node.SetListbox(one);
  one.AddRow("é");
  one.SetListIndex(1);
  node.SetListbox(one);
  two.AddRow("a", "b");
  two.AddRow("c", "d");
  node.SetListbox(two);
  EXPECT_EQ(
      TreeText(node),
      "name.0:dict{default:string=é, elements:array[0:string=old, 1:string=é]}, "
      "name.3:dict{default:string=, elements:array[0:array[0:string=a, 1:string=b], 1:array[0:string=c, 1:string=d]]}");

  node.child("name.3").child("elements").AppendString("no row of columns");
  for (Listbox* listbox : {&one, &two}) {
    listbox->DeleteAllRows();
    node.GetListbox(*listbox, true);
  }
  EXPECT_EQ(one.ListCount(), 2);
  EXPECT_EQ(one.ListIndex(), 1);
  EXPECT_EQ(two.ListCount(), 3);
  EXPECT_EQ(two.ListIndex(), 2);  // an empty row for the damaged one, the same text as that of no selection
  EXPECT_EQ(two.Cell(1, 0) + two.Cell(1, 1), "cd");

  QComboBox& popup = *Named(new QComboBox(&parent));
  popup.addItems({QStringLiteral("x"), QStringLiteral("y")});
  popup.setCurrentIndex(1);
  plistDict array;
  array.Load(nullptr, "list", true, nullptr, nullptr, false);
  array.AppendPopup(popup);
  array.AppendListbox(one);
  node.AppendPopup(popup);
  EXPECT_EQ(TreeText(array), "name.0:dict{default:string=é, elements:array[0:string=old, 1:string=é]}");
  EXPECT_EQ(node.count(), 2);
  popup.clear();
  node.SetPopup(popup);
  node.GetPopup(popup, true);
  EXPECT_EQ(popup.count(), 0);
  array.GetPopup(popup, true);
  EXPECT_EQ(popup.currentText(), QStringLiteral("é"));
}

// What a control shows is the default, so that the first read stores it and the second one brings it back.
TEST(PropertyListControls, SingleControls) {
  QWidget parent;
  TextArea& area = *Named(new TextArea(&parent));
  QLineEdit& field = *Named(new QLineEdit(&parent));
  QLabel& label = *Named(new QLabel(&parent));
  QCheckBox& box = *Named(new QCheckBox(&parent));
  QRadioButton& radio = *Named(new QRadioButton(&parent));
  const String text = "é\t<b>";
  plistDict texts[3];
  plistDict values[2];

  area.SetText(text + "\n2");
  texts[0].GetEditField(area);
  area.SetText("other");
  texts[0].GetEditField(area);
  EXPECT_EQ(area.Text(), text + "\n2");
  field.setText(QString::fromStdString(text));
  texts[1].GetTextField(field);
  field.clear();
  texts[1].GetTextField(field);
  EXPECT_EQ(field.text().toStdString(), text);
  label.setText(QString::fromStdString(text));
  texts[2].GetStaticText(label);
  label.clear();
  texts[2].GetStaticText(label);
  EXPECT_EQ(label.text().toStdString(), text);
  texts[2].SetTextField(field);
  texts[2].SetEditField(area);
  EXPECT_EQ(TreeText(texts[2]), "name:string=" + text + "\n2");

  box.setChecked(true);
  values[0].GetCheckbox(box);
  box.setChecked(false);
  values[0].GetCheckbox(box);
  EXPECT_TRUE(box.isChecked());
  values[1].GetRadio(radio);
  radio.setChecked(true);
  values[1].SetRadio(radio);
  radio.setChecked(false);
  values[1].GetRadio(radio);
  EXPECT_TRUE(radio.isChecked());
  values[1].SetCheckbox(box);
  EXPECT_EQ(TreeText(values[1]), "name:boolean=true");
  values[1].SetStaticText(label);
  EXPECT_EQ(TreeText(values[1]), "name:boolean=true");
}

}  // namespace
}  // namespace sumlet
