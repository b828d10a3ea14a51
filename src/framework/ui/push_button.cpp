// The style draws the empty button. This class draws the caption, the default outline and the focus ring, because
// styles assume that a button can grow to fit its caption, and many mark the default button and the focus alike or not
// at all. The style gets only the option, because it would read both marks from the widget.
#include "framework/ui/push_button.h"

#include <QFont>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPalette>
#include <QPen>
#include <QRect>
#include <QSize>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "framework/ui/fitting_font.h"
#include "framework/ui/plain_style.h"

namespace sumlet {
namespace {

constexpr qreal cornerRadius = 3;  // of the outline and the ring, in pixels

// A rounded rectangle with its outer edge `inset` pixels inside `bounds`.
void DrawOutline(QPainter& painter, const QRect& bounds, const QPen& pen, qreal inset) {
  const qreal middle = inset + pen.widthF() / 2;
  painter.setPen(pen);
  painter.drawRoundedRect(QRectF(bounds).adjusted(middle, middle, -middle, -middle), cornerRadius, cornerRadius);
}

}  // namespace

// Disables Qt's autoDefault and handles Return here. With autoDefault the focused button would also become the default
// button, and the outline would move to it.
PushButton::PushButton(const QString& caption, QWidget* parent) : QPushButton(caption, parent) {
  setFocusPolicy(Qt::TabFocus);
  setAutoDefault(false);
}

void PushButton::SetTextSize(Int32 pixels) {
  QFont captionFont = font();
  captionFont.setPixelSize(pixels);
  setFont(captionFont);
}

void PushButton::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isReturn)
    QPushButton::keyPressEvent(event);
  else if (!event->isAutoRepeat())
    click();
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
  constexpr QSize margin(6, 3);  // between the caption and the button's edges, in pixels
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.features &= ~(QStyleOptionButton::DefaultButton | QStyleOptionButton::AutoDefaultButton);
  option.state &= ~QStyle::State_HasFocus;
  option.text.clear();
  style()->drawControl(QStyle::CE_PushButton, &option, &painter);
  painter.setFont(FittingFont(font(), text(), size() - 2 * margin, FittedHeight::Ink));
  painter.drawItemText(rect(), Qt::AlignCenter | Qt::TextSingleLine, option.palette, isEnabled(), text(),
                       QPalette::ButtonText);
  painter.setRenderHint(QPainter::Antialiasing);
  if (isDefault() && isEnabled()) DrawOutline(painter, rect(), QPen(AccentColor(palette()), 2), 0);
  if (hasFocus()) DrawOutline(painter, rect(), QPen(palette().buttonText(), 1, Qt::DotLine), 2);
}

}  // namespace sumlet
