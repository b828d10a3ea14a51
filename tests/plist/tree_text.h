// Reads lines into a tree, and shows a tree as text, for tests of property lists.
#pragma once

#include "plist/plist_dict.h"

namespace sumlet {

// Reads the lines after the opening <dict> into `node`, the root of `document` if there is one.
inline void ReadLines(plistDict& node, std::string_view lines, plist* document = nullptr) {
  TextInputStream stream{String(lines)};
  node.Load(&stream, "root", false, nullptr, document, true);
}

inline String Written(const plistDict& node) {
  TextOutputStream stream;
  node.Write(stream, 1);
  return stream.Content();
}

// "a:string=x, b:dict{c:integer=1}, d:array[0:data=AA==]" in the order of the keys. A key without a value has no "=",
// a key without a type nothing between ":" and "=". Several children of one key are all shown.
inline String TreeText(const plistDict& node) {
  String text;
  const auto begin = [&text](const Variant& key) { text += (text.empty() ? "" : ", ") + VariantToString(key) + ":"; };
  const auto value = [&text, &node](const Variant& key) {
    if (node.values().HasKey(key)) text += "=" + VariantToString(node.values().Value(key));
  };
  for (const Variant& key : node.types().Keys()) {
    begin(key);
    text += VariantToString(node.types().Value(key));
    for (const Int32 index : node.children().IndexesOf(VariantToString(key))) {
      const plistDict& child = node.children().At(index);
      text += child.isArray() ? "[" + TreeText(child) + "]" : "{" + TreeText(child) + "}";
    }
    value(key);
  }
  for (const Variant& key : node.values().Keys()) {
    if (node.types().HasKey(key)) continue;
    begin(key);
    value(key);
  }
  return text;
}

}  // namespace sumlet
