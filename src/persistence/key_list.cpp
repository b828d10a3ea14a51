// KeyList: its items and the writer. key_list_reader.cpp takes byte strings apart.

#include "persistence/key_list.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "framework/message.h"
#include "framework/text/bytes.h"
#include "framework/text/numbers.h"
#include "persistence/key_list_format.h"

namespace sumlet {
namespace {

String Tag(std::string_view beginning, std::string_view key) {
  String tag(beginning);
  tag += key;
  tag += '>';
  return tag;
}

String Opening(std::string_view key) { return Tag("<", key); }
String Closing(std::string_view key) { return Tag("</", key); }

void AppendBigEndian(String& text, Int32 value, Int32 width) {
  for (Int32 shift = (width - 1) * 8; shift >= 0; shift -= 8) text += ChrB(value >> shift);
}

}  // namespace

KeyList NewStoredList() {
  KeyList list;
  list.BinaryFormat = true;
  list.OptimizeBinaryLengthData = true;
  return list;
}

String KeyList::GetData() { return ToString(items_.Keys(), items_.Values(), BinaryFormat); }

void KeyList::AddItem(std::string_view key, const Variant& value) {
  const VariantType type = VarType(value);
  const bool isNumber = type == VariantType::Integer || type == VariantType::Double;
  items_.Append(key, isNumber ? StrLong(VariantToDouble(value)) : VariantToString(value));
}

String KeyList::GetItem(std::string_view key, bool& found) {
  if (!BinaryFormat) return FindTagged(key, found);
  std::optional<String> value = RemoveItemsAsFound ? items_.TakeFirst(key) : items_.First(key);
  found = value.has_value();
  return found ? *std::move(value) : String();
}

String KeyList::GetItem(std::string_view key) {
  bool found = false;
  return GetItem(key, found);
}

Variant KeyList::GetItemV(std::string_view key) { return StringToVariant(GetItem(key)); }

bool KeyList::GetItem(std::string_view key, Variant& value) {
  bool found = false;
  value = StringToVariant(GetItem(key, found));
  return found;
}

String KeyList::FindTagged(std::string_view key, bool& found) {
  found = false;
  const Int32 opening = InStrB(1, sDataBuffer, Opening(key));
  if (opening == 0) return {};
  const Int32 start = opening + LenB(key) + 2;
  const Int32 closing = InStrB(start, sDataBuffer, Closing(key));
  if (closing == 0) return {};
  iFarthestBufferPosition = std::max(iFarthestBufferPosition, closing + LenB(key) + 3);
  found = true;
  return MidB(sDataBuffer, start, closing - start);
}

bool KeyList::HasItem(std::string_view key) {
  if (!BinaryFormat) return InStrB(1, sDataBuffer, Opening(key)) > 0;
  if (items_.Has(key)) return true;
  const String length = MidB(sDataBuffer, iFarthestBufferPosition, 1);
  return !length.empty() && SameText(MidB(sDataBuffer, iFarthestBufferPosition + 1, AscB(length)), key);
}

void KeyList::BinGetItem(Int32 index, String& key, String& value) const {
  key = items_.Keys()[index];
  value = items_.Values()[index];
}

Int32 KeyList::BinUbound() const { return items_.Count() - 1; }

void KeyList::RemoveAllItems() { items_.Clear(); }

Int32 KeyList::ItemCount() const { return BinUbound() + 1; }

String KeyList::GetItemKey(Int32 index) const { return items_.Keys()[index]; }

String KeyList::GetItem(Int32 index) { return items_.Values()[index]; }

void KeyList::RemoveItem(std::string_view key) {
  while (items_.TakeFirst(key)) {
  }
}

String KeyList::StrLong(double n) const {
  String text = Format(n, "-#.#########################");
  if (text.back() == '.') text.pop_back();
  return text;
}

String KeyList::ToText(const Array<String>& keys, const Array<String>& values) const {
  String text;
  for (Int32 i = 0; i <= keys.Ubound(); ++i) {
    const String key = Lowercase(keys[i]);
    text += Opening(key) + values[i] + Closing(key);
  }
  return text;
}

String KeyList::ToString(const Array<String>& keys, const Array<String>& values, bool binary) {
  if (keys.Ubound() != values.Ubound()) {
    MsgBox("Critical error: UBounds don't match!");
    return {};
  }
  if (!binary) return ToText(keys, values);

  std::size_t longest = 0;
  std::size_t size = 1;
  for (Int32 i = 0; i <= keys.Ubound(); ++i) {
    longest = std::max(longest, values[i].size());
    size += 1 + keys[i].size() + 4 + values[i].size();
  }
  iFormatType = OptimizeBinaryLengthData ? NarrowestWidth(longest) : widestLength;
  if (!IsLengthWidth(iFormatType)) {
    MsgBox("Critical err: Output Format unknown: " + Str(iFormatType));
    return {};
  }

  String text;
  text.reserve(size);
  if (!bDidSaveHeader || OptimizeBinaryLengthData) {
    text += ChrB(iFormatType);
    bDidSaveHeader = true;
  }
  for (Int32 i = 0; i <= keys.Ubound(); ++i) {
    text += ChrB(LenB(keys[i]));
    text += keys[i];
    AppendBigEndian(text, LenB(values[i]), iFormatType);
    text += values[i];
  }
  return text;
}

}  // namespace sumlet
