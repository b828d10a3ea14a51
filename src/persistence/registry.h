// RegisterByKey: for lists to which other modules add entries, one for each key, in the order of registration.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace sumlet {

// `Entry` has a member `key`. Replaces an entry with the same key, compared by bytes, at its position.
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
