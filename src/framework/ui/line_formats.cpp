// Sets formats of the lines' layouts, not of the text. Formats of the text, like those of Qt's highlighter, would enter
// the undo history and count as changes. But layout formats do not grow with the text, and an input method replaces all
// of them. So each line stores its colour, and each change rewrites the formats of its lines.
//
// Qt shapes a run of combining marks in quadratic time: minutes for a megabyte. Splitting a long run into pieces with
// separate formats makes Qt shape piece by piece. PreferNoShaping saves more time, but is not sufficient: Qt ignores it
// for Devanagari and related scripts.
#include "framework/ui/line_formats.h"

#include <QChar>
#include <QFont>
#include <QList>
#include <QStringView>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextLayout>
#include <algorithm>
#include <cstddef>

namespace sumlet {
namespace {

using FormatRange = QTextLayout::FormatRange;

constexpr int longestRun = 64;    // UTF-16 units; no written language comes near it
constexpr int firstMark = 0x300;  // the lowest code point of a combining mark

// Marks the formats written here. Its value differs between neighbouring pieces, because Qt joins equal formats.
constexpr int pieceNumber = QTextFormat::UserProperty;

// The colour of the beginning of a line.
struct ColoredBeginning final : QTextBlockUserData {
  ColoredBeginning(const QColor& newColor, int newLength) : color(newColor), length(newLength) {}
  QColor color;
  int length;  // UTF-16 units
};

const ColoredBeginning& ColorOf(const QTextBlock& block) {
  static const ColoredBeginning ordinary(QColor(), 0);
  const auto* data = static_cast<const ColoredBeginning*>(block.userData());
  return data != nullptr ? *data : ordinary;
}

void SetColor(QTextBlock block, const QColor& color, int length) {
  block.setUserData(length > 0 ? new ColoredBeginning(color, length) : nullptr);  // the block owns it
}

int TextLength(const QTextBlock& block) { return block.length() - 1; }

bool IsOurs(const FormatRange& range) { return range.format.hasProperty(pieceNumber); }

bool IsComposing(const QTextBlock& block) { return !block.layout()->preeditAreaText().isEmpty(); }

// Joiners, which can occur between marks, take as long as marks.
bool IsMark(char32_t character) {
  return character >= firstMark && (QChar::isMark(character) || character == 0x200C || character == 0x200D);
}

void AppendPieces(QStringView text, int start, int end, QList<FormatRange>& formats) {
  if (end - start <= longestRun) return;
  for (int number = 0; start < end; ++number) {
    FormatRange& piece = formats.emplaceBack();
    piece.start = start;
    piece.length = std::min(longestRun, end - start);
    if (text[start + piece.length - 1].isHighSurrogate()) --piece.length;
    piece.format.setFontStyleStrategy(QFont::PreferNoShaping);
    piece.format.setProperty(pieceNumber, number);
    start += piece.length;
  }
}

void AppendRunsOfMarks(QStringView text, QList<FormatRange>& formats) {
  const auto size = static_cast<int>(text.size());
  int start = 0;
  for (int next = 0; next < size;) {
    const int position = next++;
    char32_t character = text[position].unicode();
    if (next < size && text[position].isHighSurrogate() && text[next].isLowSurrogate())
      character = QChar::surrogateToUcs4(text[position], text[next++]);
    if (IsMark(character)) continue;
    AppendPieces(text, start, position, formats);
    start = next;
  }
  AppendPieces(text, start, size, formats);
}

// The layout includes the text that an input method composes in the line.
void MakeRoomForComposition(const QTextLayout& layout, QList<FormatRange>& formats) {
  const int position = layout.preeditAreaPosition();
  const auto length = static_cast<int>(layout.preeditAreaText().size());
  for (FormatRange& range : formats) {
    if (range.start >= position)
      range.start += length;
    else if (range.start + range.length >= position)
      range.length += length;
  }
}

QList<FormatRange> FormatsOf(const QTextBlock& block) {
  QList<FormatRange> formats;
  if (const ColoredBeginning& colored = ColorOf(block); colored.length > 0) {
    FormatRange& range = formats.emplaceBack();
    range.start = 0;
    range.length = colored.length;
    range.format.setForeground(colored.color);
    range.format.setProperty(pieceNumber, 0);
  }
  AppendRunsOfMarks(block.text(), formats);
  if (!IsComposing(block)) return formats;
  MakeRoomForComposition(*block.layout(), formats);
  for (const FormatRange& range : block.layout()->formats())
    if (!IsOurs(range)) formats.append(range);
  return formats;
}

}  // namespace

LineFormats::LineFormats(QTextDocument* document) : QObject(document), document_(document) {
  connect(document, &QTextDocument::contentsChange, this, &LineFormats::Follow);
}

void LineFormats::Apply(const std::vector<QColor>& colors) {
  std::size_t line = 0;
  for (QTextBlock block = document_->begin(); block.isValid(); block = block.next(), ++line) {
    const QColor wanted = line < colors.size() ? colors[line] : QColor();
    const int length = wanted.isValid() ? TextLength(block) : 0;
    const ColoredBeginning& current = ColorOf(block);
    const bool isShown = current.length == length && (length == 0 || current.color == wanted);
    if (isShown && (length == 0 || !block.layout()->formats().isEmpty())) continue;
    SetColor(block, wanted, length);
    if (!IsComposing(block)) Write(block);
  }
}

void LineFormats::EndComposition(int position, int removed, int added) {
  isComposing_ = false;
  Follow(position, removed, added);
}

// Runs before the changed text is laid out.
void LineFormats::Follow(int position, int removed, int added) {
  if (isComposing_) return;
  if (removed > 0 || added > 0) FollowColor(position, removed, added);
  const QTextBlock first = document_->findBlock(position);
  const QTextBlock end = document_->findBlock(position + added).next();
  for (QTextBlock block = first; block.isValid() && block != end; block = block.next())
    if (block == first || TextLength(block) > 0) Write(block);  // a new empty line needs no layout yet
}

// Text typed or pasted into a coloured line takes its colour, including further lines of that text. Text joined to the
// line by removing a line end keeps its ordinary colour. Text appended to the document is ordinary.
void LineFormats::FollowColor(int position, int removed, int added) {
  QTextBlock block = document_->findBlock(position);
  const QColor color = ColorOf(block).color;
  const int length = ColorOf(block).length;
  const int within = position - block.position();
  if (length == 0 || within > length || IsAppended(position, removed, added)) return;
  const bool isOneLine = block.contains(position + added) && TextLength(block) == length + added - removed;
  SetColor(block, color, isOneLine ? TextLength(block) : std::min(TextLength(block), within + added));
  const QTextBlock end = document_->findBlock(position + added).next();
  for (block = block.next(); block.isValid() && block != end; block = block.next())
    SetColor(block, color, TextLength(block));
}

bool LineFormats::IsAppended(int position, int removed, int added) const {
  return removed == 0 && position + added >= document_->characterCount() - 1;
}

void LineFormats::Write(const QTextBlock& block) {
  const QList<FormatRange> formats = FormatsOf(block);
  if (formats == block.layout()->formats()) return;
  block.layout()->setFormats(formats);
  document_->markContentsDirty(block.position(), block.length());
}

}  // namespace sumlet
