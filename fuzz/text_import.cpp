// The steps of an import: decodes any bytes as UTF-8 text, trims it and splits it into lines.
#include <cstddef>
#include <string_view>

#include "check.h"
#include "framework/text/array.h"
#include "framework/text/encoding.h"
#include "framework/text/text.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Character character = CharacterAt(text, i);
    if (character.code >= invalidByteBase || character.length == 0) return false;
    i += character.length;
  }
  return true;
}

void CheckDecoding(std::string_view bytes, const String& text) {
  Check(IsUtf8(text), "the text is UTF-8");
  Check(DecodeText(String(byteOrderMark) + text) == text, "text with a mark is the text");
  const bool hasMark =
      bytes.starts_with(byteOrderMark) || bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  if (!hasMark && IsUtf8(bytes)) Check(text == bytes, "text that is UTF-8 stays");
}

// The text as a window shows it: trimmed, and line by line.
void CheckLines(const String& text) {
  const String trimmed = Trim(text);
  Check(trimmed.empty() || (!IsWhiteSpace(trimmed.front()) && !IsWhiteSpace(trimmed.back())), "the ends are trimmed");
  Check(IsUtf8(trimmed), "trimming keeps characters whole");
  const Array<String> split = Split(ReplaceLineEndings(trimmed, EndOfLine), EndOfLine);
  Int32 count = 0;
  LineReader lines(trimmed);
  for (std::string_view line; lines.Next(line); ++count)
    Check(count <= split.Ubound() && split[count] == line, "the lines are those of the list");
  Check(count == split.Ubound() + 1, "there are as many lines as in the list");
}

}  // namespace

void CheckInput(std::string_view input) {
  const String text = DecodeText(String(input));
  CheckDecoding(input, text);
  CheckLines(text);
}

}  // namespace sumlet
