// Array: the growable list type of the program's logic. Indexes are 0-based, and every access is checked.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "framework/fault.h"

namespace sumlet {

// An index out of range throws a Fault and leaves the array unchanged.
template <typename T>
class Array {
 public:
  Array() = default;
  Array(std::initializer_list<T> items) : items_(items) {}

  // The highest index, -1 for an empty array.
  [[nodiscard]] std::int32_t Ubound() const { return static_cast<std::int32_t>(items_.size()) - 1; }

  [[nodiscard]] T& operator[](std::int32_t index) { return items_[Checked(index, items_.size())]; }
  [[nodiscard]] const T& operator[](std::int32_t index) const { return items_[Checked(index, items_.size())]; }

  void Append(T value) { items_.push_back(std::move(value)); }
  // `index` may be Ubound() + 1, which appends.
  void Insert(std::int32_t index, T value) {
    items_.insert(items_.begin() + Offset(Checked(index, items_.size() + 1)), std::move(value));
  }
  void Remove(std::int32_t index) { items_.erase(items_.begin() + Offset(Checked(index, items_.size()))); }

  // Makes `newUbound` the highest index: truncates the array or appends default values. -1 empties it.
  void Redim(std::int32_t newUbound) { items_.resize(Checked(newUbound + 1, items_.max_size())); }

  [[nodiscard]] auto begin() const { return items_.begin(); }
  [[nodiscard]] auto end() const { return items_.end(); }
  [[nodiscard]] bool operator==(const Array&) const = default;

 private:
  [[nodiscard]] static std::size_t Checked(std::int32_t index, std::size_t limit) {
    if (index < 0 || static_cast<std::size_t>(index) >= limit) throw Fault("an index out of range");
    return static_cast<std::size_t>(index);
  }
  [[nodiscard]] static std::ptrdiff_t Offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

  std::vector<T> items_;
};

}  // namespace sumlet
