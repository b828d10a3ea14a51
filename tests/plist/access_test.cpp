// Typed values: what each call gives, the error it leaves, and the tree behind it.
#include <gtest/gtest.h>

#include <functional>

#include "framework/message.h"
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
  const char* tree;
};

// The error has been set by another call before, which shows whether it is cleared.
void Check(const std::vector<Row>& rows, const std::function<void(plistDict& root)>& prepare) {
  for (const Row& row : rows) {
    plist document(FolderItem("/nowhere/at/all"));
    prepare(document.root());
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

#define CALL(expression) #expression, [](plistDict & x) -> String { return expression; }
#define DO(statement) \
#statement, [](plistDict& x) -> String { \
    statement;                     \
    return {};                     \
  }

TEST(PropertyListAccess, AbsentKeysTakeTheDefault) {
  Check(
      {
          {CALL(x.GetString("k", "y")), "y", "", "k:string=y"},
          {CALL(x.GetValue("k")), "", "", "k:string="},
          {CALL(x.GetData("k", "AA==")), "AA==", "", "k:string=AA=="},
          {CALL((x.GetInteger("k", 5), Str(x.GetInteger("k")))), "5", "", "k:integer=5"},
          {CALL(Str(x.GetInteger("k", -2147483647 - 1))), "-2147483648", "", "k:integer=-2147483648"},
          {CALL(Str(x.GetDouble("k", -2.25))), "2.2", "", "k:real=2.2"},
          {CALL(Str(x.GetReal("k", 3))), "3", "", "k:real=3."},
          {CALL(Text(x.GetBoolean("k"))), "true", "", "k:boolean=true"},
          {CALL(Text(x.GetBoolean("k", false))), "false", "", "k:boolean=false"},
          {CALL(x.GetDate("k", SomeDate()).SQLDateTime()), "2026-03-04 05:06:07", "", "k:date=2026-03-04 05:06:07"},
          {CALL(Text(x.GetColor("k"))), "0/0/0", "", "k:string=000000"},
          {CALL(Text(x.GetColor("k", RGB(255, 8, 0)))), "255/8/0", "", "k:string=FF0800"},
      },
      [](plistDict&) {});
}

TEST(PropertyListAccess, PresentKeys) {
  const auto prepare = [](plistDict& root) {
    TextInputStream lines(
        "<key>s</key>\n<string>TRUE</string>\n<key>n</key>\n<integer>&h1F</integer>\n<key>r</key>\n<real>-3.9</real>\n"
        "<key>d</key>\n<date>2026-03-04T05:06:07Z</date>\n<key>c</key>\n<string>FF8000</string>\n"
        "<key>b</key>\n<true/>\n<key>x</key>\n<dict/>\n<key>e</key>\n<string/>\n");
    root.Load(&lines, "root", false, nullptr, root.rootClass(), true);
  };
  Check(
      {
          {CALL(x.GetString("N", "y")), "&h1F", "", nullptr},
          {CALL(x.GetString("x")), "", "Key x does not exist", nullptr},
          {CALL(x.GetString("e", "y")), "", "Key e does not exist", nullptr},
          {CALL(Str(x.GetInteger("n"))), "31", "", nullptr},
          {CALL(Str(x.GetInteger("r"))), "-3", "", nullptr},
          {CALL(Str(x.GetInteger("s"))), "0", "", nullptr},
          {CALL(Str(x.GetInteger("x"))), "0", "Illegal Type: x is a dict", nullptr},
          {CALL(Str(x.GetInteger("d"))), "-1", "Type Mismatch: d is a date", nullptr},
          {CALL(Str(x.GetDouble("r")) + Str(x.GetReal("R"))), "-3.9-3.9", "", nullptr},
          {CALL(Str(x.GetReal("d"))), "-1", "Type Mismatch: d is a date", nullptr},
          {CALL(Text(x.GetBoolean("b", false))), "true", "", nullptr},
          {CALL(Text(x.GetBoolean("s"))), "false", "Type Mismatch: s is a string", nullptr},
          {CALL(x.GetDate("d").SQLDateTime()), "2026-03-04 05:06:07", "", nullptr},
          {CALL(Str(x.GetDate("x").Year == Date().Year ? 1 : 0)), "1", "Illegal Type: x is a dict", nullptr},
          {CALL(Text(x.GetColor("c"))), "255/128/0", "", nullptr},
          {CALL(Text(x.GetColor("n"))), "0/0/0", "Type Mismatch: n is a integer", nullptr},
          {CALL(Str(x.CheckType("n", "INTEGER")) + Str(x.CheckType("?", "x"))), "12", "", nullptr},
      },
      prepare);
}

TEST(PropertyListAccess, Setters) {
  const auto prepare = [](plistDict& root) {
    root.SetString("s", "old");
    root.SetDouble("r", 1.5);
  };
  Check(
      {
          {DO(x.SetString("S", "new")), "", "", "s:string=new, r:real=1.5"},
          {DO(x.SetString("r", "new")), "", "Type Mismatch: r is a real", "s:string=old, r:real=1.5"},
          {DO(x.SetInteger("s", 1)), "", "Type Mismatch: s is a string", "s:string=old, r:real=1.5"},
          {DO(x.SetInteger("k", -7.5)), "", "", "s:string=old, r:real=1.5, k:integer=-8"},
          {DO(x.SetDouble("r", -2.5)), "", "", "s:string=old, r:real=2.5"},
          {DO(x.SetDouble("r", 2.04)), "", "", "s:string=old, r:real=2."},
          {DO(x.SetReal("k", 0.25); x.SetReal("k", 9)), "", "Type Mismatch: k is a real",
           "s:string=old, r:real=1.5, k:real=0.2"},
          {DO(x.SetData("s", "AA==")), "", "earlier", "s:data=AA==, r:real=1.5"},
          {DO(x.SetDate("r", SomeDate())), "", "Type Mismatch: r is a real", "s:string=old, r:real=1.5"},
          {DO(x.SetColor("s", RGB(1, 16, 255))), "", "", "s:string=0110FF, r:real=1.5"},
          {DO(x.SetBoolean("s", true)), "", "Type Mismatch: s is a string", "s:string=old, r:real=1.5"},
          {DO(x.AppendString("v")), "", "root is not an array", "s:string=old, r:real=1.5"},
      },
      prepare);
}

TEST(PropertyListAccess, ArrayElements) {
  plist document(FolderItem("/nowhere/at/all"));
  plistDict& root = document.root();
  ASSERT_TRUE(root.AddArray("a"));
  plistDict& array = root.child("A");
  array.AppendString("v");
  array.AppendData("AA==");
  array.AppendInteger(-5);
  array.AppendDouble(-2.25);
  array.AppendBoolean(false);
  array.AppendDate(SomeDate());
  array.AppendColor(RGB(255, 8, 0));
  array.AppendDict();
  array.AppendArray();
  EXPECT_EQ(TreeText(array),
            "0:string=v, 1:data=AA==, 2:integer=-5, 3:double=-2.25, 4:boolean=false, 5:date=2026-03-04T05:06:07Z, "
            "6:string=FF80, 7:dict{}, 8:array[]");
  EXPECT_EQ(array.indexOf(), 8);
  EXPECT_EQ(array.index(7)->name(), "");
  EXPECT_EQ(array.index(8)->name(), "8");
  EXPECT_EQ(array.index(0), nullptr);
  EXPECT_EQ(array.index(9), nullptr);
  EXPECT_EQ(array.count(), 9);
  array.AppendList({"x", "y"}, 0, 0);
  EXPECT_EQ(TreeText(array.child("9")), "0:string=x");
  array.Remove("9");
  array.Remove("3");  // a gap: the next element takes the key of the last one
  array.AppendString("w");
  EXPECT_EQ(array.GetType("8"), "string");

  Array<String> list;
  root.SetList("l", {"x", "y", "z"}, 1, 9);
  root.GetList("l", list, false);
  EXPECT_EQ(list, (Array<String>{"y", "z"}));
  root.SetList("L", {}, 0, 0);
  root.GetList("l", list, true);
  EXPECT_EQ(list, Array<String>{""});
}

TEST(PropertyListAccess, Nodes) {
  String shown;
  const MessageHandler before = SetMessageHandler([&shown](std::string_view text) { shown += text; });
  plist document(FolderItem("/nowhere/at/all"));
  plistDict& root = document.root();
  EXPECT_EQ(root.children().Ubound(), 0);
  EXPECT_EQ(root.CurrentKey(), "");
  EXPECT_TRUE(root.eof());

  plistDict& deep = root.child("a").child("Root").child("b");
  EXPECT_EQ(&root.child("A"), &root.children().At(1));
  EXPECT_EQ(TreeText(root), "a:dict{Root:dict{b:dict{}}}");
  EXPECT_EQ(deep.AbsolutePath(), ":root:b");
  EXPECT_EQ(root.child("a").child("c").AbsolutePath(), ":root:a:c");
  EXPECT_EQ(deep.rootClass(), &document);

  document.debug = true;
  EXPECT_FALSE(root.AddArray("A"));
  EXPECT_EQ(document.errorMessage, "Array exists: A already exists");
  root.AddChild("a");
  EXPECT_EQ(shown, "Array exists: A already existsChild exists: a already exists");
  document.debug = false;
  root.SetString("s", "1");
  EXPECT_THROW(root.child("s"), Fault);
  EXPECT_THROW((void)root.GetType("?"), Fault);
  EXPECT_EQ(TreeText(root), "a:dict{Root:dict{b:dict{}}, c:dict{}}, s:string=1");

  root.MoveFirst();
  EXPECT_EQ(root.CurrentKey(), "a");
  root.MoveNext();
  EXPECT_FALSE(root.eof());
  root.MoveNext();
  EXPECT_TRUE(root.eof());
  EXPECT_EQ(root.CurrentKey(), "a");
  root.MoveLast();
  EXPECT_EQ(root.CurrentKey(), "s");
  EXPECT_EQ(plistDict::MakeTwo(7) + plistDict::MakeTwo(12), "0712");
  EXPECT_EQ(plistDict::BracketsToCode("<&lt;>"), "&lt;&lt;&gt;");
  SetMessageHandler(before);
}

TEST(PropertyListAccess, Dates) {
  for (const char* wrong : {"", "2026-03-04", "2026-03-04T05:06:07", "2026-02-30 00:00:00", "2026-01-01 24:00:00",
                            "2026-13-01 00:00:00", "26-01-01 00:00:00", "2026-01-01 00:00:00 "}) {
    Date date = SomeDate();
    EXPECT_FALSE(date.SetSQLDateTime(wrong)) << wrong;
    EXPECT_EQ(date.SQLDateTime(), "2026-03-04 05:06:07");
  }
}

}  // namespace
}  // namespace sumlet
