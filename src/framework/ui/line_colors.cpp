// The colours are formats of the lines' layouts and not of the text. Formats of the text would enter the undo history
// and count as changes of it, and so would Qt's own highlighter. But layout formats do not grow with the text: what is
// typed into a coloured line has to be coloured here, as it comes, until the next Apply.
#include "framework/ui/line_colors.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>

namespace sumlet {
namespace {

struct ColoredBeginning {
  QColor colour;  // invalid for an ordinary line
  int length = 0;
};

ColoredBeginning ColorOf(const QTextBlock& block) {
  const QList<QTextLayout::FormatRange> formats = block.layout()->formats();
  if (formats.isEmpty()) return {};
  return {formats.first().format.foreground().color(), formats.first().length};
}

int TextLength(const QTextBlock& block) { return block.length() - 1; }

}  // namespace

LineColors::LineColors(QTextDocument* document) : QObject(document), document_(document) {
  connect(document, &QTextDocument::contentsChange, this, &LineColors::Follow);
}

void LineColors::Apply(const std::vector<QColor>& colours) {
  std::size_t line = 0;
  for (QTextBlock block = document_->begin(); block.isValid(); block = block.next(), ++line) {
    const QColor wanted = line < colours.size() ? colours[line] : QColor();
    const ColoredBeginning current = ColorOf(block);
    const int length = wanted.isValid() ? TextLength(block) : 0;
    if (current.length != length || (length > 0 && current.colour != wanted)) Color(block, wanted, length);
  }
}

// Runs before the changed text is laid out. What is typed or pasted into a coloured line takes its colour, also where
// it brings line ends; what follows a removed line end keeps the ordinary one. Text added at the very end is ordinary.
void LineColors::Follow(int position, int removed, int added) {
  QTextBlock block = document_->findBlock(position);
  const ColoredBeginning before = ColorOf(block);
  const int within = position - block.position();
  if (before.length == 0 || within > before.length || IsAppended(position, removed, added)) return;
  const bool isOneLine = block.contains(position + added) && TextLength(block) == before.length + added - removed;
  const int end = position + added;
  Color(block, before.colour, isOneLine ? TextLength(block) : std::min(TextLength(block), within + added));
  for (block = block.next(); block.isValid() && block.position() <= end; block = block.next()) {
    Color(block, before.colour, TextLength(block));
  }
}

bool LineColors::IsAppended(int position, int removed, int added) const {
  return removed == 0 && position + added >= document_->characterCount() - 1;
}

void LineColors::Color(QTextBlock& block, const QColor& colour, int length) {
  QList<QTextLayout::FormatRange> formats;
  if (length > 0) {
    QTextLayout::FormatRange range;
    range.start = 0;
    range.length = length;
    range.format.setForeground(colour);
    formats.append(range);
  }
  block.layout()->setFormats(formats);
  document_->markContentsDirty(block.position(), block.length());
}

}  // namespace sumlet
