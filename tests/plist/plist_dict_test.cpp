// The nodes of a property list: typed values, array elements, and removing, moving and copying.
#include "plist/plist_dict.h"

#include <gtest/gtest.h>

#include "framework/text/numbers.h"
#include "plist/plist.h"
#include "tree_text.h"

namespace sumlet {
namespace {

class PropertyListNode : public testing::Test {
 protected:
  PropertyListNode() { noon_.SetSQLDateTime("2026-03-04T12:06:07Z"); }

  // Adds a text "s", an array "a" of two texts, and a dictionary "d" with another one in it.
  void AddExamples() {
    root_.SetString("s", "one");
    root_.SetList("a", {"x", "y"}, 0, 1);
    root_.child("d").SetInteger("n", 5);
    root_.child("d").child("e").SetBoolean("b", true);
  }

  Date noon_;
  plist document_{FolderItem("/nowhere/at/all")};
  plistDict& root_ = document_.root();
};

TEST_F(PropertyListNode, GettersStoreTheDefaultOfAnAbsentKey) {
  EXPECT_EQ(root_.CheckType("s", "string"), 2);
  EXPECT_EQ(root_.GetString("s", "y"), "y");
  EXPECT_EQ(root_.GetInteger("n", -2147483647 - 1), -2147483647 - 1);
  EXPECT_EQ(root_.GetDouble("r", -2.25), 2.2);
  EXPECT_FALSE(root_.GetBoolean("b", false));
  EXPECT_EQ(root_.GetDate("d", noon_).SQLDateTime(), "2026-03-04 12:06:07");
  EXPECT_EQ(root_.GetColor("c", RGB(255, 8, 0)), RGB(255, 8, 0));
  EXPECT_EQ(TreeText(root_),
            "s:string=y, n:integer=-2147483648, r:real=2.2, b:boolean=false, d:date=2026-03-04 12:06:07, "
            "c:string=FF0800");
}

TEST_F(PropertyListNode, GettersConvertPlainValues) {
  const char* const lines =
      "<key>hex</key>\n<integer>&h1F</integer>\n<key>real</key>\n<real>-3.9</real>\n"
      "<key>word</key>\n<string>TRUE</string>\n"
      "<key>twice</key>\n<true/>\n<key>twice</key>\n<dict/>\n<key>empty</key>\n<string/>\n";
  ReadLines(root_, lines, &document_);
  EXPECT_EQ(root_.GetInteger("HEX"), 31);
  EXPECT_EQ(root_.GetInteger("real"), -3);
  EXPECT_EQ(root_.GetInteger("word"), 0);
  EXPECT_EQ(document_.errorMessage, "");
  EXPECT_FALSE(root_.GetBoolean("word"));
  EXPECT_EQ(document_.errorMessage, "Type Mismatch: word is a string");
  EXPECT_EQ(root_.GetString("empty", "y"), "");
  EXPECT_EQ(document_.errorMessage, "Key empty does not exist");
  EXPECT_EQ(root_.GetString("twice"), "");
  EXPECT_EQ(document_.errorMessage, "Illegal Type: twice is a dict");
  root_.SetDate("day", noon_);
  EXPECT_EQ(root_.GetReal("day"), -1);
  EXPECT_EQ(document_.errorMessage, "Type Mismatch: day is a date");
  EXPECT_THROW((void)root_.GetType("absent"), Fault);
}

TEST_F(PropertyListNode, SettersKeepTheType) {
  root_.SetString("s", "old");
  root_.SetInteger("s", 1);
  EXPECT_EQ(document_.errorMessage, "Type Mismatch: s is a string");
  root_.SetInteger("n", -7.5);
  root_.SetDouble("r", -2.04);
  EXPECT_EQ(document_.errorMessage, "");
  root_.SetReal("r", 9);
  EXPECT_EQ(document_.errorMessage, "Type Mismatch: r is a real");
  EXPECT_EQ(TreeText(root_), "s:string=old, n:integer=-8, r:real=2.");
  root_.SetData("s", "AA==");
  EXPECT_EQ(root_.GetType("s"), "data");
}

TEST_F(PropertyListNode, ArrayElements) {
  root_.AppendString("x");
  EXPECT_EQ(document_.errorMessage, "root is not an array");
  ASSERT_TRUE(root_.AddArray("a"));
  EXPECT_FALSE(root_.AddArray("A"));
  plistDict& array = root_.child("A");
  array.AppendData("AA==");
  array.AppendDouble(-2.25);
  array.AppendDate(noon_);
  array.AppendColor(RGB(255, 8, 0));
  array.AppendDict();
  array.AppendArray();
  EXPECT_EQ(TreeText(array),
            "0:data=AA==, 1:double=-2.25, 2:date=2026-03-04T12:06:07Z, 3:string=FF80, 4:dict{}, 5:array[]");
  EXPECT_EQ(array.index(4)->name(), "");
  EXPECT_EQ(array.index(5)->name(), "5");
  EXPECT_EQ(array.index(0), nullptr);
  Array<String> list;
  root_.SetList("l", {"x", "y", "z"}, 1, 9);
  root_.GetList("l", list, true);
  EXPECT_EQ(list, (Array<String>{"", "y", "z"}));
}

TEST_F(PropertyListNode, Removing) {
  AddExamples();
  root_.Remove("S");
  root_.Remove("D");
  root_.child("a").Remove(Int32ToVariant(0));
  EXPECT_EQ(TreeText(root_), "a:array[0:string=y]");
  EXPECT_THROW(root_.child("a").Remove(Int32ToVariant(1)), Fault);
  EXPECT_EQ(document_.errorMessage, "Subscript out of range");

  // blank lines count as elements, so that the keys go beyond the number of elements
  plistDict gaps;
  ReadLines(gaps, "<key>a</key>\n<array>\n\n\n\n\n<string>x</string>\n<string>y</string>\n</array>\n");
  EXPECT_EQ(TreeText(gaps), "a:array[4:string=x, 5:string=y]");
  gaps.child("a").Remove(Int32ToVariant(4));
  EXPECT_EQ(TreeText(gaps), "a:array[5:string=y]");
}

TEST_F(PropertyListNode, Copying) {
  AddExamples();
  root_.Copy("s", nullptr);
  EXPECT_EQ(document_.errorMessage, "Destination is nil");
  root_.Copy("absent", &root_.child("d"));
  EXPECT_EQ(document_.errorMessage, "Source does not exist.");
  root_.Move("s", &root_.child("d"), false, "n");
  EXPECT_EQ(document_.errorMessage, "Type Mismatch: n is a integer");
  root_.Copy("s", &root_.child("a"));
  root_.Copy("d", &root_.child("a"));
  EXPECT_EQ(TreeText(root_.child("a")),
            "0:string=x, 1:string=y, 2:string=one, 3:dict{}, 4:dict{n:integer=5, e:dict{b:boolean=true}}");
  EXPECT_TRUE(root_.Exists("s"));
}

TEST_F(PropertyListNode, Moving) {
  AddExamples();
  root_.SetDouble("r", 2.5);
  root_.SetData("x", "AA==");
  for (const char* key : {"s", "r", "x", "a"}) root_.Move(key, &root_.child("d"));
  EXPECT_EQ(TreeText(root_),
            "d:dict{n:integer=5, e:dict{b:boolean=true}, s:string=one, r:real=2.5, x:data=AA==, "
            "a:dict{0:string=x, 1:string=y}}");

  root_.child("d").Move("a", &root_, true, "w");
  root_.Rename("w", "u");
  EXPECT_EQ(TreeText(root_.child("u")), "0:string=x, 1:string=y");
  EXPECT_FALSE(root_.Exists("w") || root_.child("d").Exists("a"));
  root_.Rename("u", "D");
  EXPECT_EQ(document_.errorMessage, "Key D already exists.");

  // into itself, which would never end
  const String before = TreeText(root_);
  EXPECT_THROW(root_.Copy("d", &root_.child("d").child("e")), Fault);
  EXPECT_THROW(root_.child("d").Move("e", &root_, true, "D"), Fault);
  EXPECT_EQ(TreeText(root_), before);
}

// Many children have an index of their names. Several can have the same name, and keep their order.
TEST_F(PropertyListNode, ManyChildrenOfOneName) {
  String lines;
  for (Int32 i = 0; i < 12; ++i)
    lines += "<key>" + Str(i / 2) + "</key>\n<dict>\n<key>k</key>\n" + Str(i) + "\n</dict>\n";
  ReadLines(root_, ReplaceAll(lines, "</key>\n1\n", "</key>\n<true/>\n"));
  EXPECT_TRUE(Written(root_).starts_with("\t<key>0</key>\n\t<dict/>\n\t<dict>\n\t\t<key>k</key>\n\t\t<true/>"));
  for (int again = 0; again < 2; ++again) root_.Remove("3");
  EXPECT_EQ(root_.children().Ubound(), 10);
  EXPECT_EQ(root_.child("3").name(), "3");
  EXPECT_EQ(&root_.child("5"), &root_.children().At(9));
  EXPECT_THROW((void)root_.children().At(0), Fault);
}

// Too deep for recursion, for every operation that walks down or up a tree.
TEST_F(PropertyListNode, ADeepTree) {
  constexpr int depth = 100000;
  plistDict* node = &root_;
  for (int i = 0; i < depth; ++i) node = &node->child("a");
  node->SetString("s", "found");
  EXPECT_EQ(node->AbsolutePath().size(), 5u + 2 * depth);
  EXPECT_TRUE(document_.Find("found"));
  EXPECT_EQ(document_.foundDict, node);
  root_.Copy("a", &root_.child("b"));
  EXPECT_TRUE(document_.FindNext("found"));
  root_.Remove("a");
  EXPECT_EQ(root_.count(), 1);
}

}  // namespace
}  // namespace sumlet
