// Variant: a value with its type; and Dictionary, a map from Variant to Variant.
#pragma once

#include <memory>
#include <unordered_map>
#include <utility>
#include <variant>

#include "framework/text/array.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"

namespace sumlet {

class Variant {
 public:
  Variant() = default;
  // Implicit for literals and text, because their type is clear.
  Variant(String value) : value_(std::move(value)) {}
  Variant(const char* value) : value_(String(value)) {}

  using Value = std::variant<std::monostate, String, bool, Int32, double, Color>;
  explicit Variant(Value value) : value_(std::move(value)) {}
  [[nodiscard]] const Value& Get() const { return value_; }

 private:
  Value value_;
};

// Type codes of VarType.
enum class VariantType : Int32 { Nothing = 0, Integer = 3, Double = 5, Text = 8, Boolean = 11, Color = 16 };

[[nodiscard]] Variant StringToVariant(String value);
[[nodiscard]] Variant BooleanToVariant(bool value);
[[nodiscard]] Variant Int32ToVariant(Int32 value);
[[nodiscard]] Variant DoubleToVariant(double value);
[[nodiscard]] Variant ColorToVariant(Color value);

// A text itself; a number as by Str; "True" or "False"; a colour as "&h" and six hexadecimal digits in the order red,
// green, blue; empty for nil.
[[nodiscard]] String VariantToString(const Variant& v);
// A number truncated toward zero; a text as by Val; 1 or 0 for a Boolean; the 24 bits of a colour; 0 for nil.
[[nodiscard]] Int32 VariantToInt32(const Variant& v);
[[nodiscard]] double VariantToDouble(const Variant& v);
// True for a nonzero number or colour, and for a text that is "true" in any case or a nonzero number according to
// IsNumeric. False for nil.
[[nodiscard]] bool VariantToBoolean(const Variant& v);
[[nodiscard]] Variant VariantNot(const Variant& v);
// Whether the value is a number, or a text that is a number and nothing else except spaces around it.
[[nodiscard]] bool IsNumeric(const Variant& v);
[[nodiscard]] VariantType VarType(const Variant& v);

// Keeps keys in insertion order, with the spelling of the first insertion. Text keys that differ only in case are
// equal; keys of different types are not.
class Dictionary {
 public:
  void Clear();
  [[nodiscard]] bool HasKey(const Variant& key) const;
  // 0-based; throws a Fault for an index out of range.
  [[nodiscard]] const Variant& Key(Int32 index) const { return keys_[index]; }
  [[nodiscard]] const Array<Variant>& Keys() const { return keys_; }
  [[nodiscard]] Variant Lookup(const Variant& key, const Variant& fallback) const;
  // Does nothing for an absent key.
  void Remove(const Variant& key);
  // Throws a Fault for an absent key.
  [[nodiscard]] const Variant& Value(const Variant& key) const;
  // Returns the 0-based index of the entry.
  Int32 SetValue(const Variant& key, Variant value);
  // Throws a Fault for an index out of range.
  void SetValueAt(Int32 index, Variant value) { values_[index] = std::move(value); }
  [[nodiscard]] const Array<Variant>& Values() const { return values_; }
  [[nodiscard]] Int32 Count() const { return keys_.Ubound() + 1; }

 private:
  [[nodiscard]] static String IndexKey(const Variant& key);
  [[nodiscard]] Int32 Find(const Variant& key) const;
  void AddToIndex(Int32 place);

  Array<Variant> keys_;
  Array<Variant> values_;
  // Maps a folded key and its type to a position in the arrays. Empty for small dictionaries, of which property lists
  // have thousands; a linear search is enough there.
  std::unique_ptr<std::unordered_map<String, Int32>> index_;
};

}  // namespace sumlet
