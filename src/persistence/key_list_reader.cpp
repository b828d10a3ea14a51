// KeyList: detection of the form, and the parser of the binary form.
//
// The parser takes whole records and leaves the last, incomplete one in the buffer for the bytes to come. Lengths are
// believed as they stand: a damaged one leads into rubbish, the positions run out, and the last record is dropped.
//
// A length of four bytes can be negative and lead back. The parse ends where it would begin a record a second time or
// in front of the first byte, so that it ends for any input. Records that lead back can still share their bytes, and a
// small file could so make values without end: a list that takes four times the bytes that it has ends there too.
//
// In memory an item takes some hundred bytes, however short it is. So that a list of nothing but empty items does not
// take up dozens of times its size, it ends where there are more than a million and one for each sixteen bytes; the
// shortest template or window that means anything is longer.

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "framework/message.h"
#include "framework/text/bytes.h"
#include "framework/text/numbers.h"
#include "persistence/key_list.h"
#include "persistence/key_list_format.h"

namespace sumlet {
namespace {

constexpr std::int64_t mostReadings = 4;  // how often a list may take its bytes over
constexpr std::int64_t freeItems = 1'000'000;
constexpr std::int64_t leastItem = 16;  // bytes

}  // namespace

// Reads fields off a buffer. A field that runs off the end is what is there of it.
class KeyList::RecordReader {
 public:
  RecordReader(std::string_view buffer, std::int64_t position) : buffer_(buffer), position_(position) {}

  // 1-based; behind the end when a field was cut short.
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

// Whether an opening tag stands near the start and a closing one behind it. An opening tag alone passes too, when it
// ends within the first 32 bytes: the search for the closing one then begins anew at the start.
bool KeyList::LooksLikeText() const {
  const Int32 opening = InStrB(1, sDataBuffer, "<");
  if (opening == 0 || opening >= 30) return false;
  const Int32 openingEnd = InStrB(opening + 1, sDataBuffer, ">");
  if (openingEnd <= opening || openingEnd - opening >= 33) return false;
  const Int32 closing = InStrB(openingEnd + 1, sDataBuffer, "</");
  const Int32 closingEnd = InStrB(closing + 1, sDataBuffer, ">");
  return closingEnd > closing && closingEnd - closing < 33;
}

// Gives the position of the first byte not taken, 0 when the format is unknown.
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

// False when the record is to stay in the buffer: it is not all there, one byte alone is left behind it, or the parse
// ends with it.
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
  if (leadsBack || taken > mostReadings * size || itemsTaken_ > freeItems + size / leastItem) return false;
  begun_[static_cast<std::size_t>(start)] = true;
  bytesTaken_ = taken;
  ++itemsTaken_;
  items_.Append(key, String(value));
  return true;
}

}  // namespace sumlet
