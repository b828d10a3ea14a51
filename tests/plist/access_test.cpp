// Typed values: the result of each call, its error, and the tree after it.
#include <gtest/gtest.h>

#include <functional>

#include "framework/desktop.h"
#include "framework/text/numbers.h"
#include "plist/plist.h"
#include "tree_text.h"

namespace sumlet {
namespace {

String Text(bool value) { return value ? "true" : "false"; }
String Text(Color c) { return Str(c.Red) + "/" + Str(c.Green) + "/" + Str(c.Blue); }

Date SomeDate() {
  Date date;
  EXPECT_TRUE(date.SetSQLDateTime("2026-03-04T05:06:07Z"));
  return date;
}

struct Row {
  const char* call;
  std::function<String(plistDict& node)> run;
  const char* result;
  const char* error;
  const char* tree = nullptr;
};

// Sets another error before each call, to see whether the call clears it.
void Check(std::string_view lines, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    plist document(FolderItem("/nowhere/at/all"));
    ReadLines(document.root(), lines, &document);
    document.error = true;
    document.errorMessage = "earlier";
    EXPECT_EQ(row.run(document.root()), row.result) << row.call;
    EXPECT_EQ(document.errorMessage, row.error) << row.call;
    EXPECT_EQ(document.error, !document.errorMessage.empty()) << row.call;
    if (row.tree != nullptr) {
      EXPECT_EQ(TreeText(document.root()), row.tree) << row.call;
    }
  }
}

// clang-format off
#define CALL(expression) #expression, [](plistDict& x) -> String { return expression; }
#define DO(statement) #statement, [](plistDict& x) -> String { statement; return {}; }

TEST(PropertyListAccess, AbsentKeysTakeTheDefault) {
  Check("", {
      {CALL(x.GetString("k", "y")), "y", "", "k:string=y"},
      {CALL(Str(x.GetInteger("k", -2147483647 - 1))), "-2147483648", "", "k:integer=-2147483648"},
      {CALL(Str(x.GetDouble("k", -2.25))), "2.2", "", "k:real=2.2"},
      {CALL(Text(x.GetBoolean("k", false))), "false", "", "k:boolean=false"},
      {CALL(x.GetDate("k", SomeDate()).SQLDateTime()), "2026-03-04 05:06:07", "", "k:date=2026-03-04 05:06:07"},
      {CALL(Text(x.GetColor("k", RGB(255, 8, 0)))), "255/8/0", "", "k:string=FF0800"},
  });
}

TEST(PropertyListAccess, PresentKeys) {
  const char* lines =
      "<key>s</key>\n<string>TRUE</string>\n<key>n</key>\n<integer>&h1F</integer>\n<key>r</key>\n<real>-3.9</real>\n"
      "<key>d</key>\n<date>2026-03-04T05:06:07Z</date>\n<key>c</key>\n<string>FF8000</string>\n"
      "<key>x</key>\n<dict/>\n<key>y</key>\n<true/>\n<key>y</key>\n<dict/>\n<key>e</key>\n<string/>\n";
  Check(lines, {
      {CALL(x.GetString("N", "y")), "&h1F", ""},
      {CALL(x.GetString("e", "y")), "", "Key e does not exist"},
      {CALL(x.GetString("y")), "", "Illegal Type: y is a dict"},
      {CALL(Str(x.GetInteger("n"))), "31", ""},
      {CALL(Str(x.GetInteger("r"))), "-3", ""},
      {CALL(Str(x.GetInteger("s"))), "0", ""},
      {CALL(Str(x.GetInteger("x"))), "0", "Illegal Type: x is a dict"},
      {CALL(Str(x.GetReal("d"))), "-1", "Type Mismatch: d is a date"},
      {CALL(Text(x.GetBoolean("s"))), "false", "Type Mismatch: s is a string"},
      {CALL(Text(x.GetColor("c"))), "255/128/0", ""},
      {CALL(Str(x.CheckType("n", "INTEGER"))), "1", ""},
      {CALL(Str(x.CheckType("?", "x"))), "2", ""},
  });
}

TEST(PropertyListAccess, Setters) {
  Check("<key>s</key>\n<string>old</string>\n<key>r</key>\n<real>1.5</real>\n", {
      {DO(x.SetInteger("s", 1)), "", "Type Mismatch: s is a string", "s:string=old, r:real=1.5"},
      {DO(x.SetInteger("k", -7.5)), "", "", "s:string=old, r:real=1.5, k:integer=-8"},
      {DO(x.SetDouble("r", -2.04)), "", "", "s:string=old, r:real=2."},
      {DO(x.SetReal("r", 9)), "", "Type Mismatch: r is a real", "s:string=old, r:real=1.5"},
      {DO(x.SetData("s", "AA==")), "", "earlier", "s:data=AA==, r:real=1.5"},
      {DO(x.SetColor("s", RGB(1, 16, 255))), "", "", "s:string=0110FF, r:real=1.5"},
      {DO(x.AppendString("v")), "", "root is not an array", "s:string=old, r:real=1.5"},
  });
}
// clang-format on

TEST(PropertyListAccess, ArrayElements) {
  plistDict root;
  ASSERT_TRUE(root.AddArray("a") && !root.AddArray("A"));
  plistDict& array = root.child("A");
  array.AppendData("AA==");
  array.AppendDouble(-2.25);
  array.AppendDate(SomeDate());
  array.AppendColor(RGB(255, 8, 0));
  array.AppendDict();
  array.AppendArray();
  EXPECT_EQ(TreeText(array),
            "0:data=AA==, 1:double=-2.25, 2:date=2026-03-04T05:06:07Z, 3:string=FF80, 4:dict{}, 5:array[]");
  EXPECT_EQ(array.index(4)->name(), "");
  EXPECT_EQ(array.index(5)->name(), "5");
  EXPECT_TRUE(array.index(0) == nullptr && array.index(6) == nullptr);
  array.AppendList({"x", "y"}, 0, 0);
  EXPECT_EQ(TreeText(array.child("6")), "0:string=x");
  Array<String> list;
  root.SetList("l", {"x", "y", "z"}, 1, 9);
  root.GetList("l", list, true);
  EXPECT_EQ(list, (Array<String>{"", "y", "z"}));
}

TEST(PropertyListAccess, DebuggingShowsErrors) {
  String shown;
  const HookGuard alerts = MsgBox.Set([&shown](std::string_view text) { shown += text; });
  plist document(FolderItem("/nowhere/at/all"));
  document.debug = true;
  document.root().SetString("a", "1");
  EXPECT_FALSE(document.root().AddArray("A"));
  EXPECT_EQ(shown, "Array exists: A already exists");
}

TEST(PropertyListAccess, PathsBeginAtTheLastRoot) {
  plistDict root;
  EXPECT_EQ(root.child("a").child("Root").child("b").AbsolutePath(), ":root:b");
  EXPECT_THROW((void)root.GetType("?"), Fault);
  root.SetString("s", "1");
  EXPECT_THROW(root.child("s"), Fault);
}

TEST(PropertyListAccess, Dates) {
  for (const char* wrong :
       {"2026-03-04T05:06:07", "2026-02-30 00:00:00", "2026-01-01 24:00:00", "2026-01-01 00:00:00 "}) {
    Date date = SomeDate();
    EXPECT_FALSE(date.SetSQLDateTime(wrong)) << wrong;
    EXPECT_EQ(date.SQLDateTime(), "2026-03-04 05:06:07");
  }
}

}  // namespace
}  // namespace sumlet
