#include "framework/terminal.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include <algorithm>
#include <array>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr bool IsControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

void AppendEscaped(String& text, char32_t code) {
  constexpr std::string_view named = "\t\n\r";
  const std::size_t index = code < 0x80 ? named.find(static_cast<char>(code)) : std::string_view::npos;
  if (index != std::string_view::npos) {
    text.append({'\\', "tnr"[index]});
    return;
  }
  std::array<char, 8> sequence;
  const bool isByte = code < 0x80 || code >= invalidByteBase;
  const int length = std::snprintf(sequence.data(), sequence.size(), isByte ? "\\x%02X" : "\\u%04X",
                                   static_cast<unsigned>(code >= invalidByteBase ? code - invalidByteBase : code));
  text.append(sequence.data(), static_cast<std::size_t>(length));
}

}  // namespace

bool IsTerminal(std::FILE* stream) {
#ifdef _WIN32
  return _isatty(_fileno(stream)) != 0;
#else
  return isatty(fileno(stream)) != 0;
#endif
}

String EscapeControls(std::string_view text) {
  String escaped;
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Character character = CharacterAt(text, i);
    if (IsControl(character.code) || character.code >= invalidByteBase) {
      AppendEscaped(escaped, character.code);
    } else {
      escaped.append(text, i, character.length);
    }
    i += character.length;
  }
  return escaped;
}

String TextFor(std::FILE* stream, std::string_view text) {
  const auto isPlain = [](char c) { return c >= ' ' && c < '\x7F'; };
  if (std::all_of(text.begin(), text.end(), isPlain) || !IsTerminal(stream)) return String(text);
  return EscapeControls(text);
}

}  // namespace sumlet
