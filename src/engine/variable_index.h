// VariableIndex: finds variables by name, in any case, and stores what evaluation needs to know about their values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

// The properties of a value's text.
struct ValueForm {
  std::optional<double> number = {};  // if it consists of digits with at most one "." and at most a "-" in front
  bool hasWords = false;              // contains words, which can be names of variables in turn
  bool isLong = false;                // is a number worth abridging
};

// Numbers the variables from 0 in the order in which they are added.
class VariableIndex {
 public:
  VariableIndex();

  void Clear();
  // The number of the variable `name`, or -1 if there is none.
  [[nodiscard]] Int32 Find(std::string_view name) const;
  // Adds a variable. Find(name) must be -1.
  void Add(std::string_view name, const ValueForm& form);

  [[nodiscard]] const ValueForm& Form(Int32 variable) const { return forms_[static_cast<std::size_t>(variable)]; }
  void SetForm(Int32 variable, const ValueForm& form) { forms_[static_cast<std::size_t>(variable)] = form; }

 private:
  struct Slot {
    std::uint64_t name = 0;  // packed; 0 in an empty slot
    Int32 variable = -1;
  };
  [[nodiscard]] std::size_t SlotOf(std::uint64_t packed) const;
  void Grow();

  std::vector<ValueForm> forms_;
  std::vector<Slot> slots_;  // a hash table with open addressing; its size is a power of two, at least twice used_
  std::size_t used_ = 0;
  std::unordered_map<String, Int32> longNames_;  // folded names that cannot be packed
};

}  // namespace sumlet
