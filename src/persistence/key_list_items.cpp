#include "persistence/key_list_items.h"

#include <cstddef>
#include <utility>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr Int32 longestShortList = 16;  // up to this length a linear search is faster than an index

std::size_t ToSize(Int32 position) { return static_cast<std::size_t>(position); }

}  // namespace

void KeyListItems::Append(std::string_view key, String value) {
  keys_.Append(String(key));
  values_.Append(std::move(value));
}

const Array<String>& KeyListItems::Keys() const {
  CloseGaps();
  return keys_;
}

const Array<String>& KeyListItems::Values() const {
  CloseGaps();
  return values_;
}

std::optional<String> KeyListItems::First(std::string_view key) const {
  const Int32 position = FindPosition(key);
  if (position < 0) return {};
  return values_[position];
}

std::optional<String> KeyListItems::TakeFirst(std::string_view key) {
  const Int32 position = FindPosition(key);
  if (position < 0) return {};
  std::optional<String> value = std::move(values_[position]);
  RemoveAt(position, key);
  return value;
}

void KeyListItems::Clear() { *this = KeyListItems(); }

// A list with an index is not short, even after removals, because only the index skips gaps.
bool KeyListItems::IsShort() const { return next_.empty() && keys_.Ubound() < longestShortList; }

Int32 KeyListItems::FindPosition(std::string_view key) const {
  if (IsShort()) return IndexOf(keys_, key);
  ExtendIndex();
  const auto found = index_.find(FoldCase(key));
  return found == index_.end() ? -1 : found->second.first;
}

void KeyListItems::RemoveAt(Int32 position, std::string_view key) {
  if (IsShort()) {
    keys_.Remove(position);
    values_.Remove(position);
    return;
  }
  keys_[position] = {};
  values_[position] = {};
  isGap_[ToSize(position)] = true;
  ++gapCount_;
  const auto entry = index_.find(FoldCase(key));
  entry->second.first = next_[ToSize(position)];
  if (entry->second.first < 0) index_.erase(entry);
}

void KeyListItems::ExtendIndex() const {
  const Int32 end = keys_.Ubound() + 1;
  for (auto position = static_cast<Int32>(next_.size()); position < end; ++position) {
    next_.push_back(-1);
    const auto [entry, isNew] = index_.try_emplace(FoldCase(keys_[position]), Places{position, position});
    if (isNew) continue;
    next_[ToSize(entry->second.last)] = position;
    entry->second.last = position;
  }
  isGap_.resize(next_.size());
}

void KeyListItems::CloseGaps() const {
  if (gapCount_ == 0) return;
  Int32 end = 0;
  for (Int32 position = 0; position <= keys_.Ubound(); ++position) {
    if (ToSize(position) < isGap_.size() && isGap_[ToSize(position)]) continue;
    if (end != position) {
      keys_[end] = std::move(keys_[position]);
      values_[end] = std::move(values_[position]);
    }
    ++end;
  }
  keys_.Redim(end - 1);
  values_.Redim(end - 1);
  isGap_.clear();
  gapCount_ = 0;
  index_.clear();
  next_.clear();
}

}  // namespace sumlet
