// LineFormats: colours the lines of a text document, and keeps the drawing of long runs of combining marks fast. Does
// not change the text: adds no undo step, emits no textChanged, and moves neither the caret nor the scroll bar.
#pragma once

#include <QColor>
#include <QObject>
#include <vector>

class QTextBlock;
class QTextDocument;

namespace sumlet {

class LineFormats : public QObject {
 public:
  // The document owns the new object.
  explicit LineFormats(QTextDocument* document);

  // Colours line i in colors[i], or in the ordinary colour of the text if that is invalid or missing. A line in which
  // an input method composes takes its colour at the next EndComposition.
  void Apply(const std::vector<QColor>& colors);

  // Call these before and after the handling of an input method's event, which replaces the formats of its line and
  // reports the whole line as changed. EndComposition states the actual change: `added` UTF-16 units replaced `removed`
  // ones at `position`. The formats of an unfinished composition are kept.
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
