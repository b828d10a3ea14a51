#include "framework/text/utf8.h"

#include <utf8proc.h>

#include <algorithm>

namespace sumlet {
namespace {

using Byte = unsigned char;

constexpr bool IsContinuation(Byte b) { return (b & 0xC0) == 0x80; }

// The length of the sequence according to its first byte; 0 for a byte that cannot be first.
constexpr std::size_t AnnouncedLength(Byte lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// Rejects overlong forms, surrogates and codes beyond the last code point (RFC 3629, section 4).
constexpr bool IsAllowed(char32_t code, std::size_t length) {
  if (length == 3) return code >= 0x800 && (code < 0xD800 || code > 0xDFFF);
  if (length == 4) return code >= 0x10000 && code <= 0x10FFFF;
  return true;
}

}  // namespace

Utf8Character CharacterAt(std::string_view text, std::size_t offset) {
  const Byte lead = static_cast<Byte>(text[offset]);
  if (lead < 0x80) return {lead, 1};
  const Utf8Character invalid{invalidByteBase + lead, 1};
  const std::size_t length = AnnouncedLength(lead);
  if (length == 0 || text.size() - offset < length) return invalid;
  char32_t code = lead & (0xFFu >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const Byte next = static_cast<Byte>(text[offset + i]);
    if (!IsContinuation(next)) return invalid;
    code = code << 6 | (next & 0x3Fu);
  }
  return IsAllowed(code, length) ? Utf8Character{code, length} : invalid;
}

// A continuation byte belongs to the nearest lead byte before it, but only if that sequence includes it. So iterating
// backwards finds the same characters as iterating forwards.
std::size_t LastCharacterLength(std::string_view text) {
  if (text.empty()) return 0;
  std::size_t length = 1;
  while (length < 4 && length < text.size() && IsContinuation(static_cast<Byte>(text[text.size() - length]))) ++length;
  return CharacterAt(text, text.size() - length).length == length ? length : 1;
}

std::size_t ByteOffset(std::string_view text, std::size_t index) {
  std::size_t offset = 0;
  while (index > 0 && offset < text.size()) {
    offset += CharacterAt(text, offset).length;
    --index;
  }
  return offset;
}

char32_t FoldCase(char32_t code) {
  if (code < 0x80) return static_cast<Byte>(FoldAscii(static_cast<char>(code)));
  if (code >= invalidByteBase) return code;
  utf8proc_int32_t folded[4];
  int boundClass = UTF8PROC_BOUNDCLASS_START;
  const auto count =
      utf8proc_decompose_char(static_cast<utf8proc_int32_t>(code), folded, 4, UTF8PROC_CASEFOLD, &boundClass);
  if (count == 1) return static_cast<char32_t>(folded[0]);
  const char32_t lower = LowerCase(code);
  return lower < 0x80 ? code : lower;
}

char32_t LowerCase(char32_t code) {
  if (code >= invalidByteBase) return code;
  return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(code)));
}

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  std::size_t ascii = 0;
  for (; ascii < folded.size() && IsAscii(folded[ascii]); ++ascii) folded[ascii] = FoldAscii(folded[ascii]);
  if (ascii == text.size()) return folded;
  folded.resize(ascii);
  for (std::size_t i = ascii; i < text.size();) {
    const Utf8Character character = CharacterAt(text, i);
    AppendCharacter(folded, FoldCase(character.code));
    i += character.length;
  }
  return folded;
}

void AppendCharacter(std::string& text, char32_t code) {
  if (code >= invalidByteBase) {
    text += static_cast<char>(code - invalidByteBase);
    return;
  }
  utf8proc_uint8_t bytes[4];
  const auto length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(code), bytes);
  text.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

std::size_t DisplayColumns(std::string_view text) {
  std::size_t columns = 0;
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Character character = CharacterAt(text, i);
    const bool isValid = character.code < invalidByteBase;
    columns +=
        isValid ? static_cast<std::size_t>(utf8proc_charwidth(static_cast<utf8proc_int32_t>(character.code))) : 1;
    i += character.length;
  }
  return columns;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return IsAscii(c); });
}

}  // namespace sumlet
