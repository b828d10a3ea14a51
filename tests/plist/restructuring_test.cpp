// Removing, moving, copying, renaming and searching.
#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "framework/text/numbers.h"
#include "plist/plist.h"
#include "tree_text.h"

namespace sumlet {
namespace {

struct Example {
  Example() {
    root.SetString("s", "one");
    root.AddArray("a");
    for (const char* text : {"x", "y", "z"}) root.child("a").AppendString(text);
    root.child("d").SetInteger("n", 5);
    root.child("d").child("e").SetBoolean("b", true);
  }

  plist document{FolderItem("/nowhere/at/all")};
  plistDict& root = document.root();
};

class PropertyListTree : public testing::Test, protected Example {};

TEST_F(PropertyListTree, Removing) {
  root.Remove("S");
  root.Remove("D");
  EXPECT_TRUE(!root.Exists("d") && root.child("d").count() == 0);
  root.child("a").Remove(Int32ToVariant(1));
  EXPECT_EQ(TreeText(root), "a:array[0:string=x, 1:string=z], d:dict{}");
  EXPECT_THROW(root.child("a").Remove(Int32ToVariant(2)), Fault);
  EXPECT_EQ(document.errorMessage, "Subscript out of range");
  EXPECT_THROW(root.child("a").Remove(Int32ToVariant(-1)), Fault);

  // blank lines count as elements, so that the keys go beyond the number of elements
  plistDict gaps;
  ReadLines(gaps, "<key>a</key>\n<array>\n\n\n\n\n<string>x</string>\n<string>y</string>\n</array>\n");
  EXPECT_EQ(TreeText(gaps), "a:array[4:string=x, 5:string=y]");
  gaps.child("a").Remove(Int32ToVariant(4));
  EXPECT_EQ(TreeText(gaps), "a:array[5:string=y]");
}

TEST_F(PropertyListTree, Moving) {
  // clang-format off
  const std::tuple<const char*, std::function<void(plistDict&)>, const char*, String, String> rows[] = {
      {"nil", [](plistDict& r) { r.Move("s", nullptr); }, "Destination is nil", "", ""},
      {"absent", [](plistDict& r) { r.Move("?", &r.child("d")); }, "Source does not exist.", "", ""},
      {"named", [](plistDict& r) { r.Move("s", &r.child("d"), false, "t"); }, "", ", t:string=one", ""},
      {"kept", [](plistDict& r) { r.Copy("s", &r.child("a")); }, "", "", ", 3:string=one"},
      {"mismatch", [](plistDict& r) { r.Move("s", &r.child("d"), false, "n"); }, "Type Mismatch: n is a integer", "", ""},
      {"array", [](plistDict& r) { r.Copy("a", &r.child("d")); }, "", ", a:dict{0:string=x, 1:string=y, 2:string=z}", ""},
      {"append dict", [](plistDict& r) { r.Copy("d", &r.child("a")); }, "", "", ", 3:dict{}, 4:dict{n:integer=5, e:dict{b:boolean=true}}"},
  };
  // clang-format on
  for (const auto& [what, Move, error, addedToD, addedToA] : rows) {
    Example fresh;
    Move(fresh.root);
    EXPECT_EQ(fresh.document.errorMessage, error) << what;
    EXPECT_TRUE(fresh.root.Exists("s")) << what;
    EXPECT_EQ(TreeText(fresh.root.child("d")), "n:integer=5, e:dict{b:boolean=true}" + addedToD) << what;
    EXPECT_EQ(TreeText(fresh.root.child("a")), "0:string=x, 1:string=y, 2:string=z" + addedToA) << what;
  }
}

TEST_F(PropertyListTree, MovingTakesAway) {
  root.SetDouble("r", 2.5);
  root.SetData("x", "AA==");
  root.child("d").child("v").SetString("double", "1");
  for (const char* key : {"s", "r", "x", "a"}) root.Move(key, &root.child("d"));
  EXPECT_EQ(root.count(), 1);
  EXPECT_EQ(root.child("d").GetType("r"), "real");
  EXPECT_EQ(root.child("d").GetType("x"), "data");

  root.child("d").Move("v", &root, true, "w");
  root.Rename("w", "u");
  EXPECT_EQ(TreeText(root.child("u")), "double:string=1");
  EXPECT_FALSE(root.Exists("w") || root.child("d").Exists("v"));
  root.Rename("u", "D");
  EXPECT_EQ(document.errorMessage, "Key D already exists.");

  // into itself, which would never end
  const String before = TreeText(root);
  EXPECT_THROW(root.Copy("d", &root.child("d").child("e")), Fault);
  EXPECT_THROW(root.child("d").Move("e", &root, true, "D"), Fault);
  EXPECT_EQ(TreeText(root), before);
}

TEST_F(PropertyListTree, Searching) {
  root.child("d").SetString("t", "One more");
  const auto found = [this] {
    return document.foundDict->AbsolutePath() + "." + document.foundKey + ":" + document.foundType + "=" +
           document.foundValue;
  };
  EXPECT_TRUE(document.Find("ONE"));
  EXPECT_EQ(found(), ":root.s:string=one");
  EXPECT_TRUE(document.FindNext("one"));
  EXPECT_EQ(found(), ":root:d.t:string=One more");
  EXPECT_FALSE(document.FindNext("one"));
  EXPECT_TRUE(document.FindNext("e"));  // another word
  EXPECT_EQ(found(), ":root.s:string=one");
  EXPECT_TRUE(document.Find("true"));
  root.child("d").Remove("e");
  EXPECT_EQ(document.foundDict, nullptr);
  EXPECT_TRUE(!document.Find("?") && document.foundKey.empty());
}

// Many children have an index of their names. Several can have the same name, and keep their order.
TEST(PropertyListChildren, ManyAndSeveralOfOneName) {
  String lines;
  for (Int32 i = 0; i < 12; ++i)
    lines += "<key>" + Str(i / 2) + "</key>\n<dict>\n<key>k</key>\n" + Str(i) + "\n</dict>\n";
  plistDict node;
  ReadLines(node, ReplaceAll(lines, "</key>\n1\n", "</key>\n<true/>\n"));
  EXPECT_TRUE(Written(node).starts_with("\t<key>0</key>\n\t<dict/>\n\t<dict>\n\t\t<key>k</key>\n\t\t<true/>"));
  for (int again = 0; again < 2; ++again) node.Remove("3");
  EXPECT_EQ(node.children().Ubound(), 10);
  EXPECT_EQ(node.child("3").name(), "3");
  EXPECT_EQ(&node.child("5"), &node.children().At(9));
  EXPECT_THROW((void)node.children().At(0), Fault);
}

// Too deep for recursion, for every operation that walks down or up a tree.
TEST(PropertyListDepth, ADeepTree) {
  constexpr int depth = 100000;
  plist document(FolderItem("/nowhere/at/all"));
  plistDict* node = &document.root();
  for (int i = 0; i < depth; ++i) node = &node->child("a");
  node->SetString("s", "found");
  EXPECT_EQ(node->AbsolutePath().size(), 5u + 2 * depth);
  EXPECT_TRUE(document.Find("found"));
  EXPECT_EQ(document.foundDict, node);
  document.root().Copy("a", &document.root().child("b"));
  EXPECT_TRUE(document.FindNext("found"));
  document.root().Remove("a");
  EXPECT_EQ(document.root().count(), 1);
}

}  // namespace
}  // namespace sumlet
