// ChildList: the child nodes of a plistDict with the keys that they stand under.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

class plistDict;

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
  [[nodiscard]] const String& NameAt(Int32 index) const { return children_[Checked(index)].name; }

  // The lowest, the highest, and every index of a child of this name; 0 for none.
  [[nodiscard]] Int32 IndexOf(std::string_view name) const;
  [[nodiscard]] Int32 LastIndexOf(std::string_view name) const;
  [[nodiscard]] std::vector<Int32> IndexesOf(std::string_view name) const;

  plistDict& Append(std::string_view name);
  // The indexes of the children behind it fall by one.
  void Remove(Int32 index);

 private:
  using Number = std::uint32_t;  // given out in order of creation and never again
  struct Child {
    Number number;
    String name;
    std::unique_ptr<plistDict> node;
  };

  [[nodiscard]] std::size_t Checked(Int32 index) const;
  [[nodiscard]] Int32 IndexOf(Number number) const;
  static void Destroy(std::vector<Child> children);

  std::vector<Child> children_;                 // by rising number
  std::set<std::pair<String, Number>> byName_;  // the folded name of every child
  Number nextNumber_ = 0;
};

}  // namespace sumlet
