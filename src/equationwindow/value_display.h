// ValueDisplay: paints the values of an equation's lines beside them in its text area, behind the text. The text does
// not move. A tool tip shows the value whole, up to 2000 bytes or half the screen. A click on a value calls Clicked.
//
// The display is an event filter of the area's viewport. An area without a display has no extra cost.
#pragma once

#include <QColor>
#include <QCursor>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRectF>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "equationwindow/line_values.h"
#include "framework/text/text.h"
#include "framework/ui/text_area.h"
#include "framework/ui/timer.h"

class QHelpEvent;
class QMouseEvent;

namespace sumlet {

class ValueDisplay final : public QObject {
 public:
  // Shows nothing before the first SetValues. Does not own `area`, which may be destroyed first.
  ValueDisplay(TextArea& area, const QColor& color);
  ~ValueDisplay() override;

  // Sets the values of the area's present text. Edits move and remove them, as LineValues::UpdateForEdit does.
  void SetValues(LineValues values);
  [[nodiscard]] const LineValues& Values() const { return values_; }

  // Shows the values of the lines from `first` to `last`, 0-based and both included, inverted for a moment.
  void Flash(Int32 first, Int32 last);

  // A value as painted.
  struct Shown {
    int line;  // 0-based
    QString text;
    QRectF place;  // in pixels of the viewport
    qreal baseline;
  };
  // Returns the values painted between two heights of the viewport.
  [[nodiscard]] std::vector<Shown> ShownBetween(int top, int bottom) const;

  // Runs when the user clicks the value of a line, 0-based. May be empty.
  std::function<void(Int32 line)> Clicked;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] std::optional<Shown> ShownAt(const QPoint& place) const;
  void StopFlashing();
  void Paint(const QRect& area);
  [[nodiscard]] bool ShowToolTip(const QHelpEvent& event) const;
  [[nodiscard]] bool Press(const QMouseEvent& event);
  [[nodiscard]] bool Move(const QMouseEvent& event);
  [[nodiscard]] bool Release(const QMouseEvent& event);

  const QPointer<TextArea> area_;
  const QColor color_;
  const QCursor cursorOfText_;
  LineValues values_;
  std::optional<QPoint> pressed_;  // where the user pressed the left button on a value
  bool isForwarding_ = false;      // such a press to the area
  Int32 firstFlashing_ = 0;        // line; none flashes while the last is before the first
  Int32 lastFlashing_ = -1;
  Timer tmrFlash_;
};

}  // namespace sumlet
