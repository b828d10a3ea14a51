// The search. It always begins at the top and marks each key that it has reported, so that FindNext continues after the
// last one. The walk uses the cursors of the nodes to find its way back, and so needs no recursion.
#include <vector>

#include "plist/plist.h"

namespace sumlet {

bool plist::Find(std::string_view text) {
  foundDict = nullptr;
  foundKey.clear();
  foundValue.clear();
  foundType.clear();
  ClearSearch(*root_);
  lastSearch = text;
  return ReadStructure(*root_, text, SearchMode::Values);
}

bool plist::FindNext(std::string_view text) {
  if (!SameText(text, lastSearch)) ClearSearch(*root_);
  return ReadStructure(*root_, text, SearchMode::Values);
}

void plist::ClearSearch(plistDict& node) {
  Walk(node, [](plistDict& holder, const String& key) {
    holder.searched_.SetValue(key, BooleanToVariant(false));
    return false;
  });
}

bool plist::ReadStructure(plistDict& node, std::string_view text, SearchMode mode) {
  return Walk(node, [&](plistDict& holder, const String& key) {
    String value = holder.GetValue(key);
    if (InStr(mode == SearchMode::Values ? value : key, text) == 0) return false;
    if (VariantToBoolean(holder.searched_.Lookup(key, BooleanToVariant(false)))) return false;
    holder.searched_.SetValue(key, BooleanToVariant(true));
    foundDict = &holder;
    foundKey = key;
    foundValue = std::move(value);
    foundType = holder.GetType(key);
    return true;
  });
}

// Visits a container at its position among the plain keys; one without keys has nothing to visit.
bool plist::Walk(plistDict& top, const std::function<bool(plistDict& holder, const String& key)>& visit) {
  std::vector<plistDict*> way;
  const auto enter = [&way](plistDict& node) {
    node.MoveFirst();
    if (node.count() > 0) way.push_back(&node);
    return node.count() > 0;
  };
  enter(top);
  while (!way.empty()) {
    plistDict& node = *way.back();
    if (node.eof()) {
      way.pop_back();
      if (!way.empty()) way.back()->MoveNext();
      continue;
    }
    const String key = node.CurrentKey();
    if (IsContainer(node.GetType(key))) {
      if (!enter(node.child(key))) node.MoveNext();
      continue;
    }
    if (visit(node, key)) return true;
    node.MoveNext();
  }
  return false;
}

}  // namespace sumlet
