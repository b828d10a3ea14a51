// Windows and controls that a property list stores and restores.
#include <gtest/gtest.h>

#include "framework/ui/listbox.h"
#include "framework/ui/window.h"
#include "plist/plist_dict.h"
#include "plist/tree_text.h"

namespace sumlet {
namespace {

class TestWindow : public Window {
 public:
  TestWindow() { Create(false); }
};

TEST(PropertyListControls, WindowsGetTheirTitleAndPositionBack) {
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

TEST(PropertyListControls, ListsGetTheirRowsAndSelectionBack) {
  Listbox list(nullptr);
  list.setObjectName(QStringLiteral("list"));
  list.setProperty("Index", 3);
  list.AddRow("a", "b");
  list.AddRow("c", "d");
  list.SetListIndex(1);
  plistDict node;
  node.SetListbox(list);
  EXPECT_EQ(TreeText(node.child("list.3")),
            "default:string=c, elements:array[0:array[0:string=a, 1:string=b], 1:array[0:string=c, 1:string=d]]");
  list.DeleteAllRows();
  node.GetListbox(list, true);
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.Cell(1, 1), "d");
}

}  // namespace
}  // namespace sumlet
