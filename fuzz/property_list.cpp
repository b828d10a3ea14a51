// Property lists: reads any lines into a consistent tree, restructures the tree, and writes it. Reading the written
// lines gives the same tree, unless its texts prevent that.
//
// The first byte of the input chooses how to restructure the tree; the rest are the lines.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <vector>

#include "check.h"
#include "framework/fault.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "plist/plist.h"
#include "plist/tree_text.h"

namespace sumlet {
namespace {

constexpr const char* leafTypes[] = {"string", "integer", "real", "double", "date", "boolean"};

// Whether `text` is one line without characters that have a meaning in the file format.
bool IsPlain(std::string_view text) {
  const auto isPlain = [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != '<' && c != '>' && c != '&'; };
  return std::all_of(text.begin(), text.end(), isPlain);
}

// Whether reading back the written tree gives the same tree: each key has one value of a known type, and the keys of
// each array count up from 0.
bool BearsReadingBack(const plistDict& node) {
  Int32 containers = 0;
  for (Int32 i = 0; i < node.count(); ++i) {
    const String key = VariantToString(node.types().Key(i));
    const String type = node.GetType(key);
    if (!IsPlain(key) || (node.isArray() && key != Str(i))) return false;
    if (IsContainer(type)) {
      const std::vector<Int32> children = node.children().IndexesOf(key);
      if (children.size() != 1 || !BearsReadingBack(node.children().At(children.front()))) return false;
      if (node.children().At(children.front()).isArray() != SameText(type, "array")) return false;
      ++containers;
      continue;
    }
    const bool isKnown = std::find(std::begin(leafTypes), std::end(leafTypes), type) != std::end(leafTypes);
    if (!isKnown || !node.values().HasKey(key) || !IsPlain(VariantToString(node.values().Value(key)))) return false;
  }
  return node.children().Ubound() == containers && node.values().Count() == node.count() - containers;
}

void CheckNode(const plistDict& node) {
  for (Int32 i = 1; i <= node.children().Ubound(); ++i) {
    const plistDict& child = node.children().At(i);
    Check(child.parent() == &node && child.rootClass() == node.rootClass(), "a child knows where it belongs");
    const std::vector<Int32> same = node.children().IndexesOf(node.children().NameAt(i));
    Check(std::find(same.begin(), same.end(), i) != same.end(), "a child is found under its name");
    Check(node.children().IndexOf(node.children().NameAt(i)) == same.front(), "the first of a name is found first");
  }
}

void SearchAndRemove(plist& document) {
  int rounds = 0;
  while (document.Find("1") && ++rounds < 50) {
    Check(document.foundDict->Exists(document.foundKey), "what is found is there");
    document.foundDict->Remove(document.foundKey);
  }
  while (document.FindNext("e") && ++rounds < 50) Check(document.foundDict != nullptr, "what is found is somewhere");
}

// Each operation may throw a Fault if the tree does not fit.
void Restructure(plist& document, unsigned how) {
  plistDict& root = document.root();
  const String first = root.count() > 0 ? VariantToString(root.types().Key(0)) : String();
  const String last = root.count() > 0 ? VariantToString(root.types().Key(root.count() - 1)) : String();
  try {
    if (how & 1) root.Copy(first, &root.child(last));
    if (how & 2) root.child(last).Remove(Int32ToVariant(static_cast<Int32>(how >> 6)));
    if (how & 4) root.Move(last, &root.child(first), true, (how & 32) ? first : String());
    if (how & 8) root.Rename(first, "renamed");
    if (how & 16) SearchAndRemove(document);
    (void)root.GetInteger(first, 1);
    (void)root.GetDate(last);
    (void)root.GetColor(last);
  } catch (const Fault&) {
  }
  CheckNode(root);
}

}  // namespace

void CheckInput(std::string_view input) {
  static plist document(FolderItem("/nowhere/at/all"));
  const std::string_view lines = input.substr(std::min<std::size_t>(1, input.size()));
  plistDict node;
  ReadLines(node, lines);
  CheckNode(node);
  const String written = Written(node);
  if (BearsReadingBack(node)) {
    plistDict again;
    ReadLines(again, written + "</dict>\n");
    Check(Written(again) == written, "what is written is read back");
  }
  document.Load(FolderItem("/nowhere/at/all"), {});
  ReadLines(document.root(), lines, &document);
  Restructure(document, input.empty() ? 0 : static_cast<unsigned char>(input.front()));
  (void)Written(document.root());
}

}  // namespace sumlet
