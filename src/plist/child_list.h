// ChildList: the child nodes of a plistDict, each with its key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

class plistDict;

// Shares one copy of a key among all nodes under it: a damaged file can have thousands under a long one.
using SharedText = std::shared_ptr<const String>;

// Indexes are 1-based, because element 0 is always empty. An index outside 1 to Ubound() throws a Fault and changes
// nothing. Several children can have the same name, in any case; in damaged files they do.
class ChildList {
 public:
  ChildList();
  ~ChildList();
  ChildList(ChildList&&) = delete;
  ChildList& operator=(ChildList&&) = delete;

  [[nodiscard]] Int32 Ubound() const { return static_cast<Int32>(children_.size()); }
  [[nodiscard]] plistDict& At(Int32 index) const { return *children_[Checked(index)].node; }
  [[nodiscard]] const String& NameAt(Int32 index) const { return *children_[Checked(index)].name; }

  // The lowest index of a child of this name, 0 for none; and all its indexes, ascending.
  [[nodiscard]] Int32 IndexOf(std::string_view name) const;
  [[nodiscard]] std::vector<Int32> IndexesOf(std::string_view name) const;

  plistDict& Append(SharedText name);
  // The indexes of the children after it decrease by one.
  void Remove(Int32 index);

 private:
  using Number = std::uint32_t;  // assigned in order of creation, never reused
  struct Child {
    Number number;
    SharedText name;
    std::unique_ptr<plistDict> node;
  };
  using Numbers = std::vector<Number>;
  struct Index {
    std::unordered_map<String, Numbers> byName;  // the folded name of every child
    SharedText lastName;                         // of the child added last, with its entry in the map
    Numbers* lastNumbers = nullptr;
  };

  [[nodiscard]] std::size_t Checked(Int32 index) const;
  [[nodiscard]] Int32 Place(Number number) const;
  void AddToIndex(const Child& child);
  static void Destroy(std::vector<Child> children);

  std::vector<Child> children_;   // by ascending number
  std::unique_ptr<Index> index_;  // null while there are few children
  Number nextNumber_ = 0;
};

}  // namespace sumlet
