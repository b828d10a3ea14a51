#include "framework/ui/push_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "framework/ui/fitting_font.h"

namespace sumlet {

PushButton::PushButton(const QString& caption, QWidget* parent) : QPushButton(caption, parent) {
  setFocusPolicy(Qt::TabFocus);
  setAutoDefault(true);  // Return presses the button that has the focus
}

void PushButton::SetTextSize(Int32 points) {
  QFont captionFont = font();
  captionFont.setPointSize(points);
  setFont(captionFont);
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
  constexpr QSize distance(2, 1);  // of the caption from the frame on each side, in pixels
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRect space = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
  painter.setFont(FittingFont(font(), text(), space.size() - 2 * distance));
  option.fontMetrics = QFontMetrics(painter.font());
  painter.drawControl(QStyle::CE_PushButton, option);
  if (hasFocus()) DrawFocusRing(painter);
}

// Of its own, because styles outline the focus in the way in which they outline the default button.
void PushButton::DrawFocusRing(QPainter& painter) const {
  constexpr int distance = 2;  // from the button's edge, in pixels
  constexpr int rounding = 2;
  const qreal inset = distance + 0.5;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), rounding, rounding);
}

}  // namespace sumlet
