// ChildList: the child nodes of a plistDict with the keys that they stand under.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

class plistDict;

// A key is held once, however many nodes stand under it: a damaged file can have thousands under a long one.
using SharedText = std::shared_ptr<const String>;

// Indexes are 1-based: element 0 is a permanent empty one. An index outside 1 to Ubound() is a Fault and changes
// nothing. Several children can have one name, in whatever case: children of damaged files do.
class ChildList {
 public:
  ChildList();
  ~ChildList();
  ChildList(ChildList&&) = delete;
  ChildList& operator=(ChildList&&) = delete;

  [[nodiscard]] Int32 Ubound() const { return static_cast<Int32>(children_.size()); }
  [[nodiscard]] plistDict& At(Int32 index) const { return *children_[Checked(index)].node; }
  [[nodiscard]] const String& NameAt(Int32 index) const { return *children_[Checked(index)].name; }

  // The lowest, and every index of a child of this name, rising; 0 for none.
  [[nodiscard]] Int32 IndexOf(std::string_view name) const;
  [[nodiscard]] std::vector<Int32> IndexesOf(std::string_view name) const;

  plistDict& Append(SharedText name);
  // The indexes of the children behind it fall by one.
  void Remove(Int32 index);

 private:
  using Number = std::uint32_t;  // given out in order of creation and never again
  struct Child {
    Number number;
    SharedText name;
    std::unique_ptr<plistDict> node;
  };
  using Numbers = std::vector<Number>;
  struct Index {
    std::unordered_map<String, Numbers> byName;  // the folded name of every child
    SharedText lastName;                         // of the child added last, and its place in the map
    Numbers* lastNumbers = nullptr;
  };

  [[nodiscard]] std::size_t Checked(Int32 index) const;
  [[nodiscard]] Int32 Place(Number number) const;
  void AddToIndex(const Child& child);
  static void Destroy(std::vector<Child> children);

  std::vector<Child> children_;   // by rising number
  std::unique_ptr<Index> index_;  // a few children are found without it
  Number nextNumber_ = 0;
};

}  // namespace sumlet
