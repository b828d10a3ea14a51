// LineColors: the lines of a text document in colours, for the eye only. Colouring is no change of the text: it is not
// undone, raises no text change and moves neither caret nor scroll bar.
#pragma once

#include <QColor>
#include <QObject>
#include <vector>

class QTextBlock;
class QTextDocument;

namespace sumlet {

class LineColors : public QObject {
 public:
  // Belongs to the document.
  explicit LineColors(QTextDocument* document);

  // Colours line i in colours[i]. An invalid colour, or none, is the ordinary colour of the text. Lines that have their
  // colour already cost nothing.
  void Apply(const std::vector<QColor>& colours);

 private:
  void Follow(int position, int removed, int added);
  [[nodiscard]] bool IsAppended(int position, int removed, int added) const;
  void Color(QTextBlock& block, const QColor& colour, int length);

  QTextDocument* document_;
};

}  // namespace sumlet
