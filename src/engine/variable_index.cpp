#include "engine/variable_index.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "engine/language.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr std::size_t initialSlots = 64;

}  // namespace

VariableIndex::VariableIndex() : slots_(initialSlots) {}

void VariableIndex::Clear() {
  forms_.clear();
  std::fill(slots_.begin(), slots_.end(), Slot{});
  used_ = 0;
  longNames_.clear();
}

Int32 VariableIndex::Find(std::string_view name) const {
  if (const std::uint64_t packed = PackedName(name)) return slots_[SlotOf(packed)].variable;
  const String folded = FoldCase(name);  // can be ASCII where the name is not: the long s is an s
  if (const std::uint64_t packed = PackedName(folded)) return slots_[SlotOf(packed)].variable;
  const auto found = longNames_.find(folded);
  return found == longNames_.end() ? -1 : found->second;
}

void VariableIndex::Add(std::string_view name, const ValueForm& form) {
  const auto variable = static_cast<Int32>(forms_.size());
  forms_.push_back(form);
  std::uint64_t packed = PackedName(name);
  if (packed == 0) {
    String folded = FoldCase(name);
    packed = PackedName(folded);
    if (packed == 0) {
      longNames_.emplace(std::move(folded), variable);
      return;
    }
  }
  if (++used_ * 2 > slots_.size()) Grow();
  slots_[SlotOf(packed)] = {packed, variable};
}

// The slot of the name, or the empty slot where to insert it.
std::size_t VariableIndex::SlotOf(std::uint64_t packed) const {
  const std::size_t last = slots_.size() - 1;
  std::size_t slot = packed * 0x9E3779B97F4A7C15 >> (64 - std::countr_zero(slots_.size()));
  while (slots_[slot].name != 0 && slots_[slot].name != packed) slot = (slot + 1) & last;
  return slot;
}

void VariableIndex::Grow() {
  const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(slots_.size() * 4));
  for (const Slot& slot : before) {
    if (slot.name != 0) slots_[SlotOf(slot.name)] = slot;
  }
}

}  // namespace sumlet
