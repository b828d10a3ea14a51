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
  EXPECT_TRUE(one.ListCount() == 2 && one.ListIndex() == 1);
  EXPECT_TRUE(two.ListCount() == 3 && two.ListIndex() == 2);  // an empty row for the damaged one, and no selection
  EXPECT_EQ(two.Cell(1, 0) + two.Cell(1, 1), "cd");

  QComboBox& popup = *Named(new QComboBox(&parent));
  popup.addItems({QStringLiteral("x"), QStringLiteral("y")});
  popup.setCurrentIndex(1);
  plistDict array;
  array.Load(nullptr, "list", true, nullptr, nullptr, false);
  array.AppendPopup(popup);
  node.AppendPopup(popup);
  EXPECT_EQ(node.count(), 2);
  EXPECT_EQ(TreeText(array), "name.0:dict{default:string=y, elements:array[0:string=x, 1:string=y]}");
  array.AppendListbox(one);
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
  plistDict nodes[5];
  const auto readAll = [&] {
    nodes[0].GetEditField(area);
    nodes[1].GetTextField(field);
    nodes[2].GetStaticText(label);
    nodes[3].GetCheckbox(box);
    nodes[4].GetRadio(radio);
  };
  const QString text = QStringLiteral("é\t<b>");
  const auto show = [&](const QString& shown, bool checked) {
    area.SetText((shown + QStringLiteral("\n2")).toStdString());
    field.setText(shown);
    label.setText(shown);
    box.setChecked(checked);
    radio.setChecked(checked);
  };
  show(text, true);
  readAll();
  show(QStringLiteral("other"), false);
  readAll();
  EXPECT_EQ(area.Text(), text.toStdString() + "\n2");
  EXPECT_TRUE(field.text() == text && label.text() == text && box.isChecked() && radio.isChecked());

  show(QStringLiteral("new"), false);
  nodes[0].SetStaticText(label);
  EXPECT_EQ(TreeText(nodes[0]), "name:string=new");
  nodes[1].SetEditField(area);
  nodes[2].SetTextField(field);
  nodes[3].SetRadio(radio);
  nodes[4].SetCheckbox(box);
  EXPECT_EQ(TreeText(nodes[1]) + TreeText(nodes[2]), "name:string=new\n2name:string=new");
  EXPECT_EQ(TreeText(nodes[3]) + TreeText(nodes[4]), "name:boolean=falsename:boolean=false");
}

}  // namespace
}  // namespace sumlet
