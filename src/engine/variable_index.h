// VariableIndex: which variables there are, by name in any case, and what each value is to an evaluation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

// What the text of a value is.
struct ValueForm {
  std::optional<double> number = {};  // of digits with at most one "." and at most a "-" in front
  bool hasWords = false;              // holds characters of names, which are looked up in their turn
  bool isLong = false;                // a number worth abridging
};

// Variables are numbered from 0 in the order in which they are added.
class VariableIndex {
 public:
  VariableIndex();

  void Clear();
  // The number of the variable `name`, or -1.
  [[nodiscard]] Int32 Find(std::string_view name) const;
  // Adds a variable that Find does not know.
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
  std::vector<Slot> slots_;  // open addressing; a power of two, at most half of them taken
  std::size_t used_ = 0;
  std::unordered_map<std::string, Int32> longNames_;  // the names that cannot be packed, in folded case
};

}  // namespace sumlet
