#include "persistence/key_list_items.h"

#include <utility>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr Int32 longestShortList = 16;  // up to this length a linear search is faster than an index

std::size_t At(Int32 place) { return static_cast<std::size_t>(place); }

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
  const Int32 place = Place(key);
  if (place < 0) return {};
  return values_[place];
}

std::optional<String> KeyListItems::TakeFirst(std::string_view key) {
  const Int32 place = Place(key);
  if (place < 0) return {};
  std::optional<String> value = std::move(values_[place]);
  RemoveAt(place, key);
  return value;
}

void KeyListItems::Clear() { *this = KeyListItems(); }

// A list keeps its index once it has one, because a short list may have no gaps.
bool KeyListItems::IsShort() const { return next_.empty() && keys_.Ubound() < longestShortList; }

Int32 KeyListItems::Place(std::string_view key) const {
  if (IsShort()) return IndexOf(keys_, key);
  ExtendIndex();
  const auto found = index_.find(FoldCase(key));
  return found == index_.end() ? -1 : found->second.first;
}

void KeyListItems::RemoveAt(Int32 place, std::string_view key) {
  if (IsShort()) {
    keys_.Remove(place);
    values_.Remove(place);
    return;
  }
  keys_[place] = {};
  values_[place] = {};
  isGap_[At(place)] = true;
  ++gapCount_;
  const auto entry = index_.find(FoldCase(key));
  entry->second.first = next_[At(place)];
  if (entry->second.first < 0) index_.erase(entry);
}

void KeyListItems::ExtendIndex() const {
  const Int32 end = keys_.Ubound() + 1;
  for (auto place = static_cast<Int32>(next_.size()); place < end; ++place) {
    next_.push_back(-1);
    const auto [entry, isNew] = index_.try_emplace(FoldCase(keys_[place]), Places{place, place});
    if (isNew) continue;
    next_[At(entry->second.last)] = place;
    entry->second.last = place;
  }
  isGap_.resize(next_.size());
}

void KeyListItems::CloseGaps() const {
  if (gapCount_ == 0) return;
  Int32 end = 0;
  for (Int32 place = 0; place <= keys_.Ubound(); ++place) {
    if (At(place) < isGap_.size() && isGap_[At(place)]) continue;
    if (end != place) {
      keys_[end] = std::move(keys_[place]);
      values_[end] = std::move(values_[place]);
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
