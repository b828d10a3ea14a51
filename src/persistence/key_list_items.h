// KeyListItems: keys with their values in the order added, found by index or by key without regard to case.
//
// A look-up by key and the removal of what it found take the same time however long the list is. Long lists keep an
// index of their folded keys; one look-up after another would otherwise compare every key with every other. The index
// is made at the first look-up, since many lists are only written, and takes in new items at the next one. A removal
// leaves a gap, because closing it would move every place in the index; the gaps are closed when the list is next asked
// by index.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/text/array.h"
#include "framework/text/text.h"

namespace sumlet {

class KeyListItems {
 public:
  void Append(std::string_view key, String value);
  [[nodiscard]] Int32 Count() const { return keys_.Ubound() + 1 - gapCount_; }

  // Element i of Keys belongs to element i of Values.
  [[nodiscard]] const Array<String>& Keys() const;
  [[nodiscard]] const Array<String>& Values() const;

  [[nodiscard]] bool Has(std::string_view key) const { return Place(key) >= 0; }
  // The value of the first item with this key, or nothing. TakeFirst removes the item too.
  [[nodiscard]] std::optional<String> First(std::string_view key) const;
  std::optional<String> TakeFirst(std::string_view key);

  void Clear();

 private:
  // The places of one key: from `first` along next_ to `last`.
  struct Places {
    Int32 first;
    Int32 last;
  };

  [[nodiscard]] bool IsShort() const;
  [[nodiscard]] Int32 Place(std::string_view key) const;
  void RemoveAt(Int32 place, std::string_view key);
  void ExtendIndex() const;
  void CloseGaps() const;

  // Mutable is what asking changes: nothing that can be seen from outside.
  mutable Array<String> keys_;
  mutable Array<String> values_;
  mutable std::vector<bool> isGap_;  // one for each item that is in the index
  mutable Int32 gapCount_ = 0;
  mutable std::unordered_map<String, Places> index_;  // by folded key
  mutable std::vector<Int32> next_;                   // the next item with the same key, -1 for none
};

}  // namespace sumlet
