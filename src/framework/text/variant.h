// Variant: one value that remembers its type, and Dictionary, a map from Variant to Variant.
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
  // Implicit for literals and text, which have but one meaning.
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

// The text itself; a number in its Str form; "True" or "False"; a colour as "&h" and six hexadecimal digits in the
// order red, green, blue; empty for nothing.
[[nodiscard]] String VariantToString(const Variant& v);
// A number cut toward zero, a text by Val; 0 for nothing. A Boolean counts as 1 or 0, a colour as its 24 bits.
[[nodiscard]] Int32 VariantToInt32(const Variant& v);
[[nodiscard]] double VariantToDouble(const Variant& v);
// A number or colour is True when it is not 0, a text when it is "true" in any case or a number, as told by IsNumeric,
// other than 0; False for nothing.
[[nodiscard]] bool VariantToBoolean(const Variant& v);
[[nodiscard]] Variant VariantNot(const Variant& v);
// Whether the value is a number, or a text that is a number from end to end, spaces around it aside.
[[nodiscard]] bool IsNumeric(const Variant& v);
[[nodiscard]] VariantType VarType(const Variant& v);

// Keys keep the order of their insertion and the spelling they were first given. Text keys that differ only in case are
// one key; keys of different types are different keys.
class Dictionary {
 public:
  void Clear();
  [[nodiscard]] bool HasKey(const Variant& key) const;
  // 0-based; a Fault for an index out of range.
  [[nodiscard]] const Variant& Key(Int32 index) const { return keys_[index]; }
  [[nodiscard]] const Array<Variant>& Keys() const { return keys_; }
  [[nodiscard]] Variant Lookup(const Variant& key, const Variant& fallback) const;
  // An absent key is left alone.
  void Remove(const Variant& key);
  // A Fault for an absent key.
  [[nodiscard]] const Variant& Value(const Variant& key) const;
  // Gives the 0-based index of the entry.
  Int32 SetValue(const Variant& key, Variant value);
  // A Fault for an index out of range.
  void SetValueAt(Int32 index, Variant value) { values_[index] = std::move(value); }
  [[nodiscard]] const Array<Variant>& Values() const { return values_; }
  [[nodiscard]] Int32 Count() const { return keys_.Ubound() + 1; }

 private:
  [[nodiscard]] static String IndexKey(const Variant& key);
  [[nodiscard]] Int32 Find(const Variant& key) const;
  void AddToIndex(Int32 place);

  Array<Variant> keys_;
  Array<Variant> values_;
  // Folded key with its type to its place in the arrays. A few entries are found without it: property lists are made of
  // thousands of small dictionaries.
  std::unique_ptr<std::unordered_map<String, Int32>> index_;
};

}  // namespace sumlet
