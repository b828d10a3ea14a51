// LineFormats: how the lines of a text document are drawn: their colours, and runs of combining marks in a way that
// stays fast. It never changes the text: it adds no undo step, raises no text change and moves neither caret nor scroll
// bar.
#pragma once

#include <QColor>
#include <QObject>
#include <vector>

class QTextBlock;
class QTextDocument;

namespace sumlet {

class LineFormats : public QObject {
 public:
  // Belongs to the document.
  explicit LineFormats(QTextDocument* document);

  // Colours line i in colors[i]. An invalid colour, or none, is the ordinary colour of the text. A line in which an
  // input method composes takes its colour at the next EndComposition.
  void Apply(const std::vector<QColor>& colors);

  // To be called around the handling of an input method's event, which replaces the formats of its line and reports the
  // whole line as changed. The second call says what has changed: at `position`, `removed` UTF-16 units were replaced
  // by `added` ones. The formats of a composition that goes on are kept.
  void BeginComposition() { isComposing_ = true; }
  void EndComposition(int position, int removed, int added);

 private:
  void Follow(int position, int removed, int added);
  void FollowColor(int position, int removed, int added);
  [[nodiscard]] bool IsAppended(int position, int removed, int added) const;
  void Write(const QTextBlock& block);

  QTextDocument* document_;
  bool isComposing_ = false;
};

}  // namespace sumlet
