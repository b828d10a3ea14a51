// Callers read a list by asking for each child by name, so a look-up must not walk over all children. The index maps a
// name to permanent numbers, not to positions in the list, so that removing a child does not invalidate it.
#include "plist/child_list.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include "framework/fault.h"
#include "framework/text/utf8.h"
#include "plist/plist_dict.h"

namespace sumlet {

ChildList::ChildList() = default;

ChildList::~ChildList() { Destroy(std::move(children_)); }

// Iterative, because a tree can be deeper than the call stack.
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
  if (index_) {
    const auto found = index_->byName.find(FoldCase(name));
    return found == index_->byName.end() ? 0 : Place(found->second.front());
  }
  const auto child = std::find_if(children_.begin(), children_.end(),
                                  [name](const Child& other) { return SameText(*other.name, name); });
  return child == children_.end() ? 0 : static_cast<Int32>(child - children_.begin()) + 1;
}

std::vector<Int32> ChildList::IndexesOf(std::string_view name) const {
  std::vector<Int32> indexes;
  if (index_) {
    const auto found = index_->byName.find(FoldCase(name));
    if (found == index_->byName.end()) return indexes;
    for (const Number number : found->second) indexes.push_back(Place(number));
    return indexes;
  }
  for (std::size_t i = 0; i < children_.size(); ++i) {
    if (SameText(*children_[i].name, name)) indexes.push_back(static_cast<Int32>(i) + 1);
  }
  return indexes;
}

plistDict& ChildList::Append(SharedText name) {
  constexpr std::size_t largestUnindexed = 8;
  children_.push_back({nextNumber_++, std::move(name), std::make_unique<plistDict>()});
  if (index_) {
    AddToIndex(children_.back());
  } else if (children_.size() > largestUnindexed) {
    index_ = std::make_unique<Index>();
    for (const Child& child : children_) AddToIndex(child);
  }
  return *children_.back().node;
}

void ChildList::AddToIndex(const Child& child) {
  if (index_->lastNumbers == nullptr || index_->lastName != child.name) {
    index_->lastName = child.name;
    index_->lastNumbers = &index_->byName[FoldCase(*child.name)];
  }
  index_->lastNumbers->push_back(child.number);
}

void ChildList::Remove(Int32 index) {
  const auto child = children_.begin() + static_cast<std::ptrdiff_t>(Checked(index));
  if (index_) {
    const auto numbers = index_->byName.find(FoldCase(*child->name));
    numbers->second.erase(std::lower_bound(numbers->second.begin(), numbers->second.end(), child->number));
    if (numbers->second.empty()) index_->byName.erase(numbers);
    index_->lastNumbers = nullptr;
  }
  std::vector<Child> removed;
  removed.push_back(std::move(*child));
  children_.erase(child);
  Destroy(std::move(removed));
}

std::size_t ChildList::Checked(Int32 index) const {
  if (index < 1 || index > Ubound()) throw Fault("an index out of range");
  return static_cast<std::size_t>(index) - 1;
}

Int32 ChildList::Place(Number number) const {
  const auto place = std::lower_bound(children_.begin(), children_.end(), number,
                                      [](const Child& child, Number wanted) { return child.number < wanted; });
  return static_cast<Int32>(place - children_.begin()) + 1;
}

}  // namespace sumlet
