// A list is read from its first element to its last by asking for each child by name, so that looking for a name must
// not be a walk over all of them. The index leads from a name to numbers that stay, since places in the list do not:
// removing a child then costs no new index.
#include "plist/child_list.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "framework/fault.h"
#include "framework/text/utf8.h"
#include "plist/plist_dict.h"

namespace sumlet {

ChildList::ChildList() = default;

ChildList::~ChildList() { Destroy(std::move(children_)); }

// In a loop: a tree can be deeper than the stack.
void ChildList::Destroy(std::vector<Child> children) {
  while (!children.empty()) {
    const std::unique_ptr<plistDict> node = std::move(children.back().node);
    children.pop_back();
    std::vector<Child>& below = node->children_.children_;
    std::move(below.begin(), below.end(), std::back_inserter(children));
    below.clear();
  }
}

Int32 ChildList::IndexOf(std::string_view name) const {
  const String folded = FoldCase(name);
  const auto found = byName_.lower_bound({folded, 0});
  return found == byName_.end() || found->first != folded ? 0 : IndexOf(found->second);
}

Int32 ChildList::LastIndexOf(std::string_view name) const {
  const std::vector<Int32> indexes = IndexesOf(name);
  return indexes.empty() ? 0 : indexes.back();
}

std::vector<Int32> ChildList::IndexesOf(std::string_view name) const {
  const String folded = FoldCase(name);
  std::vector<Int32> indexes;
  for (auto found = byName_.lower_bound({folded, 0}); found != byName_.end() && found->first == folded; ++found) {
    indexes.push_back(IndexOf(found->second));
  }
  return indexes;
}

plistDict& ChildList::Append(std::string_view name) {
  children_.push_back({nextNumber_, String(name), std::make_unique<plistDict>()});
  byName_.emplace(FoldCase(name), nextNumber_++);
  return *children_.back().node;
}

void ChildList::Remove(Int32 index) {
  const auto child = children_.begin() + static_cast<std::ptrdiff_t>(Checked(index));
  byName_.erase({FoldCase(child->name), child->number});
  std::vector<Child> removed;
  removed.push_back(std::move(*child));
  children_.erase(child);
  Destroy(std::move(removed));
}

std::size_t ChildList::Checked(Int32 index) const {
  if (index < 1 || index > Ubound()) throw Fault("an index out of range");
  return static_cast<std::size_t>(index) - 1;
}

Int32 ChildList::IndexOf(Number number) const {
  const auto place = std::lower_bound(children_.begin(), children_.end(), number,
                                      [](const Child& child, Number wanted) { return child.number < wanted; });
  return static_cast<Int32>(place - children_.begin()) + 1;
}

}  // namespace sumlet
