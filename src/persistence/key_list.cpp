// KeyList: its items, the writer, and the parser of byte strings.
//
// The parser takes whole records and leaves an incomplete one at the end in the buffer for later bytes. It does not
// check lengths. After a damaged one it reads wrong data until a record extends past the end.
//
// A length of four bytes is signed, and a negative one moves the position backwards. Parsing stops where a record would
// start before the first byte or where one has started already, so it ends for any input. Records can still overlap,
// and a small file could then produce very many values. So parsing also stops when the records parsed are longer
// together than four times the buffer.
//
// In memory an item takes a few hundred bytes, even if it is empty. So parsing stops after a million items plus one for
// each 16 bytes of the buffer. A template or a window with any content takes more than 16 bytes.
//
// docs/settings-format.md draws the records.

#include "persistence/key_list.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "framework/desktop.h"
#include "framework/text/bytes.h"
#include "framework/text/numbers.h"

namespace sumlet {
namespace {

// A value's length takes 1, 2 or 4 bytes, the same for all items of one list; the first byte of the list says which.
constexpr Int32 widestLength = 4;

bool IsLengthWidth(Int32 format) { return format == 1 || format == 2 || format == widestLength; }

// The fewest bytes that hold the length of the longest value.
Int32 NarrowestWidth(std::size_t longestValue) {
  if (longestValue > 65535) return widestLength;
  return longestValue > 255 ? 2 : 1;
}

constexpr std::int64_t maxExpansion = 4;  // the length of all records together, in buffer sizes
constexpr std::int64_t baseItemLimit = 1'000'000;
constexpr std::int64_t bytesPerFurtherItem = 16;

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

// Reads fields from a buffer. A field that runs past the end is cut there.
class KeyList::RecordReader {
 public:
  RecordReader(std::string_view buffer, std::int64_t position) : buffer_(buffer), position_(position) {}

  // 1-based; past the end if a field was cut.
  [[nodiscard]] std::int64_t Position() const { return position_; }

  [[nodiscard]] std::string_view Take(std::int64_t length) {
    const std::int64_t begin = position_ - 1;
    position_ += length;
    if (length <= 0 || begin < 0 || begin >= static_cast<std::int64_t>(buffer_.size())) return {};
    return buffer_.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(length));
  }

  // Big-endian, unsigned below four bytes and signed with four. Missing bytes count as 0.
  [[nodiscard]] Int32 TakeNumber(Int32 width) {
    std::uint32_t number = 0;
    const std::string_view bytes = Take(width);
    for (std::size_t i = 0; i < static_cast<std::size_t>(width); ++i) {
      number = number << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u);
    }
    return static_cast<Int32>(number);
  }

 private:
  std::string_view buffer_;
  std::int64_t position_;
};

KeyList NewStoredList() {
  KeyList list;
  list.BinaryFormat = true;
  list.OptimizeBinaryLengthData = true;
  return list;
}

// ---- Items and the writer

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

// ---- The parser

void KeyList::AddData(std::string_view data) {
  sDataBuffer += data;
  if (iFormatType == 0) DetermineInputFormat();
  if (BinaryFormat) iFarthestBufferPosition = ParseBinaryData();
}

void KeyList::ReduceBuffer() {
  const auto cut = std::min(begun_.size(), static_cast<std::size_t>(std::max(iFarthestBufferPosition, 1)) - 1);
  begun_.erase(begun_.begin(), begun_.begin() + static_cast<std::ptrdiff_t>(cut));
  bytesTaken_ = 0;
  itemsTaken_ = 0;
  sDataBuffer = MidB(sDataBuffer, iFarthestBufferPosition);
  iFarthestBufferPosition = 1;
}

void KeyList::DetermineInputFormat() {
  const bool isText = !BinaryFormat && LooksLikeText();
  iFormatType = isText ? -2 : -1;
  BinaryFormat = !isText;
}

// Whether an opening tag is near the start and a closing one follows. If there is no "</", `closing` is 0, and the
// search for its ">" starts at the first byte. So an opening tag that ends within the first 32 bytes is then enough.
bool KeyList::LooksLikeText() const {
  const Int32 opening = InStrB(1, sDataBuffer, "<");
  if (opening == 0 || opening >= 30) return false;
  const Int32 openingEnd = InStrB(opening + 1, sDataBuffer, ">");
  if (openingEnd <= opening || openingEnd - opening >= 33) return false;
  const Int32 closing = InStrB(openingEnd + 1, sDataBuffer, "</");
  const Int32 closingEnd = InStrB(closing + 1, sDataBuffer, ">");
  return closingEnd > closing && closingEnd - closing < 33;
}

// Returns the position of the first byte not parsed, or 0 if the format is unknown.
Int32 KeyList::ParseBinaryData() {
  RecordReader reader(sDataBuffer, iFarthestBufferPosition);
  if (iFormatType == -1) iFormatType = reader.TakeNumber(1);
  if (!IsLengthWidth(iFormatType)) {
    MsgBox("Critical err: Input Format unknown: " + Str(iFormatType));
    return 0;
  }
  begun_.resize(sDataBuffer.size() + 1);
  while (reader.Position() < LenB(sDataBuffer)) {
    const std::int64_t start = reader.Position();
    if (!TakeRecord(reader)) return static_cast<Int32>(start);
  }
  return static_cast<Int32>(reader.Position());
}

// Returns false and leaves the record in the buffer if it is incomplete, if exactly one byte follows it, or if parsing
// must stop (see the top of this file).
bool KeyList::TakeRecord(RecordReader& reader) {
  const std::int64_t size = LenB(sDataBuffer);
  const std::int64_t start = reader.Position();
  const std::string_view key = reader.Take(reader.TakeNumber(1));
  if (reader.Position() + iFormatType > size + 1) return false;
  const std::string_view value = reader.Take(reader.TakeNumber(iFormatType));

  const std::int64_t next = reader.Position();
  if (next == size || next > size + 1 || next <= 0) return false;
  const std::int64_t taken = bytesTaken_ + 1 + iFormatType + static_cast<std::int64_t>(key.size() + value.size());
  const bool leadsBack = next < size && (begun_[static_cast<std::size_t>(next)] || next == start);
  if (leadsBack || taken > maxExpansion * size || itemsTaken_ > baseItemLimit + size / bytesPerFurtherItem)
    return false;
  begun_[static_cast<std::size_t>(start)] = true;
  bytesTaken_ = taken;
  ++itemsTaken_;
  items_.Append(key, String(value));
  return true;
}

}  // namespace sumlet
