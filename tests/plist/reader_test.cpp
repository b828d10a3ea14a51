// The line-wise reader: the lines after the opening <dict>, and the resulting tree.
#include <gtest/gtest.h>

#include "plist/plist_dict.h"

#include <utility>
#include "tree_text.h"

namespace sumlet {
namespace {

TEST(PropertyListReader, Layouts) {
  const std::pair<const char*, const char*> rows[] = {
      // values
      {"<key>a</key>\n<string>x &lt;y&GT; &amp;</string>\n</dict>", "a:string=x <y> &amp;"},
      {"\t<KEY>a</KEY>\r\n\t<Integer>-1</INTEGER>\r\n\t<key>A</key>\r<TRUE/>\r</Dict>\r<key>b</key>", "a:boolean=true"},
      {"<key>a&lt;</key>\n<false/>\n<key>b</key><date>2026</date><key>c</key>\n<x y=\"1\">2</x>\n</dict>",
       "a&lt;:boolean=false, b:date=2026, c:x y=\"1\""},
      // several lines: each followed by CR, except in data
      {"<key>a</key>\n\t<string>1\n\t\t  2\n\n3</string>\n</dict>", "a:string=1\r  2\r3\r"},
      {"<key>a</key>\n<string>1>2\n3</string>\n</dict>", "a:string=3\r"},
      {"<key>a</key>\n<string>1\n<key>b</key>\n2</string>\n</dict>", "a:string, b:=1\r2\r"},
      {"<key>a</key>\n<data>\n\tAAEC\n\tAwQ=\n\t</data>\n</dict>", "a:data=AAECAwQ="},
      // empty and self-closed
      {"<key>a</key>\n<string></string>\n<key>b</key>\n<dict/>\n<key>c</key>\n<array/>\n<key>d</key>\n<true/>\n</dict>",
       "a:string=, b:dict{}, c:array[], d:boolean=true"},
      {"<key>a</key>\n<dict>\n<key>b</key>\n<string/>\n<key>c</key>\n<string>1</string>\n</dict>\n<key>d</key>\n<x/>",
       "a:dict{b:string}, d:x"},
      // containers
      {"<key>a</key>\n<dict>\n<key>b</key>\n<array>\n<true/>\n</array>\n</dict>\n<key>c</key>\n<true/>\n</dict>",
       "a:dict{b:array[0:boolean=true]}, c:boolean=true"},
      {"<key>a</key><dict><key>b</key><true/></dict><key>c</key>\n<false/>\n</dict>\n<key>d</key>\n<true/>\n</dict>",
       "a:dict{:boolean=false}, b:boolean=true, d:boolean=true"},
      // array keys count lines
      {"<key>a</key>\n<array>\n<true/>\n\n<true/><false/>\n<string>1\n2</string>\n<dict/>\n</array>\n</dict>",
       "a:array[0:boolean=true, 2:boolean=false, 3:string=1\r2\r, 4:dict{}]"},
      // out of place
      {"<key>a</key>\n<true/>\n<!-- note -->\n<key>b</key>\n<true/>\n</dict>", "a:!-- note --=true"},
      {"  <key>a</key>\n  <true/>\n</dict>", ":  <key"},
      {"<dict/>\n<true/>", ":boolean{}=true"},
      {"<key>a</key>\n<string>1\n<dict/>\n2</string>\n</dict>", "a:string"},
  };
  for (const auto& [lines, tree] : rows) {
    plistDict node;
    ReadLines(node, lines);
    EXPECT_EQ(TreeText(node), tree) << lines;
  }
}

TEST(PropertyListReader, TheNodeItself) {
  plistDict node;
  node.SetString("old", "1");
  node.AddChild("kept");
  TextInputStream lines("<true/>\n\n<string>1\n2</string>\n</array>\n");
  node.Load(&lines, "root", true, nullptr, nullptr, true);
  EXPECT_EQ(TreeText(node), "0:boolean=true, 2:string=1\r2\r");
  EXPECT_EQ(node.indexOf(), 3);
  EXPECT_EQ(node.name(), "root");
  EXPECT_EQ(node.children().Ubound(), 1);
  EXPECT_THROW(node.Load(nullptr, "root", false, nullptr, nullptr, true), Fault);
}

// The reading time must be proportional to the length.
TEST(PropertyListReader, HostileTexts) {
  const auto repeat = [](const String& text, int count) {
    String all;
    while (count-- > 0) all += text;
    return all;
  };
  const int many = 100000;
  const String texts[] = {
      repeat("<key>a</key>\n<dict>\n", many),
      repeat("<dict>\n", many) + repeat("</dict>\n", many),
      repeat("<array>\n<dict/><dict/>", many),
      "<" + repeat("</s", 3 * many) + ">\n" + repeat("</S", 3 * many),
      "<string>" + repeat("x\n", 5 * many),
      "<" + repeat("k", many) + ">\n" + repeat("x\n", many),
      "<key>" + repeat("k", many) + "</key>\n" + repeat("<dict/>\n<true/>\n", many),
  };
  for (const String& text : texts) {
    plistDict node;
    ReadLines(node, text);
    EXPECT_LE(node.count(), 2) << text.substr(0, 20);
  }
}

}  // namespace
}  // namespace sumlet
