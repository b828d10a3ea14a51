#include "framework/text/variant.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "framework/fault.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

template <typename... Visitors>
struct Overloaded : Visitors... {
  using Visitors::operator()...;
};

template <typename... Visitors>
auto Visit(const Variant& v, Visitors... visitors) {
  return std::visit(Overloaded<Visitors...>{visitors...}, v.Get());
}

Int32 ColorBits(Color color) { return color.Red << 16 | color.Green << 8 | color.Blue; }

String ColorText(Color color) {
  const String digits = Hex(ColorBits(color));
  String text = "&h";
  text.append(6 - digits.size(), '0');
  return text + digits;
}

std::size_t SkipDigits(std::string_view s, std::size_t at) {
  while (at < s.size() && IsDigit(s[at])) ++at;
  return at;
}

// Skips spaces but not tabs, as Val does.
std::string_view WithoutSpaces(std::string_view s) {
  s.remove_prefix(std::min(s.find_first_not_of(' '), s.size()));
  return s.substr(0, s.find_last_not_of(' ') + 1);
}

// The end of the number that `s` begins with; 0 if there is none.
std::size_t NumberEnd(std::string_view s) {
  const std::size_t begin = !s.empty() && (s[0] == '-' || s[0] == '+') ? 1 : 0;
  const std::size_t whole = SkipDigits(s, begin);
  const bool hasPoint = whole < s.size() && s[whole] == '.';
  const std::size_t end = hasPoint ? SkipDigits(s, whole + 1) : whole;
  if (end - begin - (hasPoint ? 1 : 0) == 0) return 0;
  if (end == s.size() || FoldAscii(s[end]) != 'e') return end;
  const std::size_t sign = end + 1 < s.size() && (s[end + 1] == '-' || s[end + 1] == '+') ? 1 : 0;
  const std::size_t exponentEnd = SkipDigits(s, end + 1 + sign);
  return exponentEnd > end + 1 + sign ? exponentEnd : end;
}

}  // namespace

Variant StringToVariant(String value) { return Variant(Variant::Value(std::move(value))); }
Variant BooleanToVariant(bool value) { return Variant(Variant::Value(value)); }
Variant Int32ToVariant(Int32 value) { return Variant(Variant::Value(value)); }
Variant DoubleToVariant(double value) { return Variant(Variant::Value(value)); }
Variant ColorToVariant(Color value) { return Variant(Variant::Value(value)); }

String VariantToString(const Variant& v) {
  return Visit(
      v, [](std::monostate) { return String(); }, [](const String& s) { return s; },
      [](bool b) { return String(b ? "True" : "False"); }, [](Int32 n) { return Str(n); },
      [](double x) { return Str(x); }, [](Color c) { return ColorText(c); });
}

Int32 VariantToInt32(const Variant& v) { return ToInt32(VariantToDouble(v)); }

double VariantToDouble(const Variant& v) {
  return Visit(
      v, [](std::monostate) { return 0.0; }, [](const String& s) { return Val(s); },
      [](bool b) { return b ? 1.0 : 0.0; }, [](Int32 n) { return static_cast<double>(n); }, [](double x) { return x; },
      [](Color c) { return static_cast<double>(ColorBits(c)); });
}

bool VariantToBoolean(const Variant& v) {
  const String* text = std::get_if<String>(&v.Get());
  if (text == nullptr) return VariantToDouble(v) != 0;
  return SameText(*text, "true") || (IsNumeric(v) && Val(*text) != 0);
}

Variant VariantNot(const Variant& v) { return BooleanToVariant(!VariantToBoolean(v)); }

bool IsNumeric(const Variant& v) {
  if (const String* text = std::get_if<String>(&v.Get())) {
    const std::string_view number = WithoutSpaces(*text);
    return !number.empty() && NumberEnd(number) == number.size();
  }
  return std::holds_alternative<Int32>(v.Get()) || std::holds_alternative<double>(v.Get());
}

VariantType VarType(const Variant& v) {
  return Visit(
      v, [](std::monostate) { return VariantType::Nothing; }, [](const String&) { return VariantType::Text; },
      [](bool) { return VariantType::Boolean; }, [](Int32) { return VariantType::Integer; },
      [](double) { return VariantType::Double; }, [](Color) { return VariantType::Color; });
}

void Dictionary::Clear() {
  keys_.Redim(-1);
  values_.Redim(-1);
  index_.reset();
}

bool Dictionary::HasKey(const Variant& key) const { return Find(key) >= 0; }

Variant Dictionary::Lookup(const Variant& key, const Variant& fallback) const {
  const Int32 index = Find(key);
  return index < 0 ? fallback : values_[index];
}

void Dictionary::Remove(const Variant& key) {
  const Int32 index = Find(key);
  if (index < 0) return;
  if (index_) index_->erase(IndexKey(key));
  keys_.Remove(index);
  values_.Remove(index);
  if (!index_ || index > keys_.Ubound()) return;
  for (auto& [name, place] : *index_) {
    if (place > index) --place;
  }
}

const Variant& Dictionary::Value(const Variant& key) const {
  const Int32 index = Find(key);
  if (index < 0) throw Fault("a key that is not there");
  return values_[index];
}

Int32 Dictionary::SetValue(const Variant& key, Variant value) {
  const Int32 index = Find(key);
  if (index >= 0) {
    values_[index] = std::move(value);
    return index;
  }
  keys_.Append(key);
  values_.Append(std::move(value));
  AddToIndex(keys_.Ubound());
  return keys_.Ubound();
}

void Dictionary::AddToIndex(Int32 place) {
  constexpr Int32 few = 8;
  if (index_) {
    index_->emplace(IndexKey(keys_[place]), place);
  } else if (place >= few) {
    index_ = std::make_unique<std::unordered_map<String, Int32>>();
    for (Int32 i = 0; i <= place; ++i) index_->emplace(IndexKey(keys_[i]), i);
  }
}

// The key of a double has all its digits, which its text may not show. +0 and -0 are the same key.
String Dictionary::IndexKey(const Variant& key) {
  const String type = Str(static_cast<Int32>(VarType(key))) + ":";
  const double* number = std::get_if<double>(&key.Get());
  if (number == nullptr) return type + FoldCase(VariantToString(key));
  std::array<char, 32> digits;  // the shortest exact representation has at most 24 characters
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), *number + 0.0).ptr;
  return type + String(digits.data(), end);
}

Int32 Dictionary::Find(const Variant& key) const {
  if (index_) {
    const auto found = index_->find(IndexKey(key));
    return found == index_->end() ? -1 : found->second;
  }
  const String* text = std::get_if<String>(&key.Get());
  for (Int32 i = 0; i <= keys_.Ubound(); ++i) {
    const String* other = std::get_if<String>(&keys_[i].Get());
    if (text != nullptr && other != nullptr ? SameText(*text, *other) : IndexKey(key) == IndexKey(keys_[i])) return i;
  }
  return -1;
}

}  // namespace sumlet
