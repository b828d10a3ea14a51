// KeyListItems: the items of a KeyList in the order added, with look-up by index and, ignoring case, by key.
//
// Look-up by key and removal by key take constant time. Long lists keep a hash index of their folded keys. The first
// look-up builds it, because many lists are only written, and later look-ups add new items. A removal leaves a gap, as
// closing it would shift every position in the index; the next access by index closes all gaps.
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

  // Values()[i] is the value of Keys()[i].
  [[nodiscard]] const Array<String>& Keys() const;
  [[nodiscard]] const Array<String>& Values() const;

  [[nodiscard]] bool Has(std::string_view key) const { return FindPosition(key) >= 0; }
  // The value of the first item with this key, if any. TakeFirst also removes the item.
  [[nodiscard]] std::optional<String> First(std::string_view key) const;
  std::optional<String> TakeFirst(std::string_view key);

  void Clear();

 private:
  // The positions of one key: a list linked by next_ from `first` to `last`.
  struct Places {
    Int32 first;
    Int32 last;
  };

  [[nodiscard]] bool IsShort() const;
  [[nodiscard]] Int32 FindPosition(std::string_view key) const;
  void RemoveAt(Int32 position, std::string_view key);
  void ExtendIndex() const;
  void CloseGaps() const;

  // Mutable, because look-ups build the index and close gaps.
  mutable Array<String> keys_;
  mutable Array<String> values_;
  mutable std::vector<bool> isGap_;  // one element for each item in the index
  mutable Int32 gapCount_ = 0;
  mutable std::unordered_map<String, Places> index_;  // by folded key
  mutable std::vector<Int32> next_;                   // the next item with the same key, or -1
};

}  // namespace sumlet
