// Lists that other modules add to: one entry a key, in the order in which the keys came first.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace sumlet {

// `Entry` has a member `key`. An entry of the same key, compared by its bytes, is replaced in its place.
template <typename Entry>
void RegisterByKey(std::vector<Entry>& entries, Entry entry) {
  const auto place =
      std::find_if(entries.begin(), entries.end(), [&entry](const Entry& other) { return other.key == entry.key; });
  if (place != entries.end()) {
    *place = std::move(entry);
  } else {
    entries.push_back(std::move(entry));
  }
}

}  // namespace sumlet
