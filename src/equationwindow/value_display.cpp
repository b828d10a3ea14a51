#include "equationwindow/value_display.h"

#include <QApplication>
#include <QChar>
#include <QEvent>
#include <QFontMetrics>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QScreen>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "equationwindow/value_text.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

constexpr Int32 flashPeriod = 300;      // ms
constexpr qsizetype toolTipLine = 80;   // UTF-16 units
constexpr qsizetype toolTipLines = 25;  // at most

// Half the height of the screen, less room for the margins and the pointer. Qt would place a higher tool tip under
// the pointer, and hide it at once.
qsizetype ToolTipLinesOn(const QScreen& screen) {
  const int lines = screen.availableGeometry().height() / 2 / QFontMetrics(QToolTip::font()).lineSpacing() - 3;
  return std::clamp<qsizetype>(lines, 1, toolTipLines);
}

// Breaks the text into lines, because Qt shows plain text on a single line.
QString ToolTipOf(std::string_view value, const QScreen& screen) {
  const auto most = static_cast<std::size_t>(ToolTipLinesOn(screen) * toolTipLine);
  QString text = ToQString(value.size() > most ? value.substr(0, most - 1) : value);
  if (value.size() > most) text += QChar(0x2026);
  for (qsizetype end = (text.size() - 1) / toolTipLine * toolTipLine; end > 0; end -= toolTipLine)
    text.insert(end, u'\n');
  return text;
}

// An open tool tip would stay while the user types, scrolls or resizes by a key, and show the value of another text.
void HideToolTip(const QWidget& viewport) {
  if (QToolTip::isVisible() && viewport.underMouse()) QToolTip::hideText();
}

}  // namespace

ValueDisplay::ValueDisplay(TextArea& area, const QColor& color)
    : area_(&area), color_(color), cursorOfText_(area.viewport()->cursor()) {
  area.viewport()->installEventFilter(this);
  area.viewport()->setMouseTracking(true);
  connect(area.document(), &QTextDocument::contentsChange, this, [this](int position, int /*removed*/, int added) {
    values_.UpdateForEdit(*area_->document(), position, added);
    HideToolTip(*area_->viewport());
    StopFlashing();
  });
  connect(&area, &TextArea::updateRequest, this, [this](const QRect& /*rect*/, int scrolled) {
    if (scrolled != 0) HideToolTip(*area_->viewport());
  });
  tmrFlash_.SetPeriod(flashPeriod);
  tmrFlash_.Action = [this](Timer&) { StopFlashing(); };
}

ValueDisplay::~ValueDisplay() {
  if (area_ == nullptr) return;
  HideToolTip(*area_->viewport());
  area_->viewport()->setMouseTracking(false);
  area_->viewport()->setCursor(cursorOfText_);
  area_->viewport()->update();
}

void ValueDisplay::SetValues(LineValues values) {
  values_ = std::move(values);
  HideToolTip(*area_->viewport());
  area_->viewport()->update();
}

void ValueDisplay::Flash(Int32 first, Int32 last) {
  firstFlashing_ = first;
  lastFlashing_ = last;
  tmrFlash_.SetMode(TimerMode::Single);
  area_->viewport()->update();
}

void ValueDisplay::StopFlashing() {
  lastFlashing_ = firstFlashing_ - 1;
  area_->viewport()->update();
}

std::vector<ValueDisplay::Shown> ValueDisplay::ShownBetween(int top, int bottom) const {
  const QFontMetricsF metrics(area_->font(), area_->viewport());
  const auto widthOf = [&metrics](QChar character) { return metrics.horizontalAdvance(character); };
  std::vector<Shown> shown;
  for (const auto& [line, room, baseline, isLeftOfText] : area_->RoomsBesideLines(top, bottom)) {
    // A readable character is at least one pixel wide, so the rest of a very long value need not be converted.
    const auto most = static_cast<std::size_t>(room.width()) + 1;
    const QString value = ToQString(values_.ValueOf(line).substr(0, most));
    const PlacedValue placed = PlaceValue(value, {room.left(), room.right(), isLeftOfText}, widthOf);
    if (placed.text.isEmpty()) continue;
    shown.push_back({line, placed.text, {placed.left, room.top(), placed.width, room.height()}, baseline});
  }
  return shown;
}

std::optional<ValueDisplay::Shown> ValueDisplay::ShownAt(const QPoint& place) const {
  for (const Shown& shown : ShownBetween(place.y(), place.y()))
    if (shown.place.contains(place)) return shown;
  return {};
}

// The text area paints its text afterwards, in front of the values.
void ValueDisplay::Paint(const QRect& area) {
  QPainter painter(area_->viewport());
  painter.setFont(area_->font());
  for (const Shown& shown : ShownBetween(area.top(), area.bottom())) {
    const bool isFlashing = shown.line >= firstFlashing_ && shown.line <= lastFlashing_;
    if (isFlashing) painter.fillRect(shown.place, area_->palette().color(QPalette::Active, QPalette::Highlight));
    painter.setPen(isFlashing ? area_->palette().color(QPalette::Base) : color_);
    painter.drawText(QPointF(shown.place.left(), shown.baseline), shown.text);
  }
}

bool ValueDisplay::ShowToolTip(const QHelpEvent& event) const {
  const std::optional<Shown> shown = ShownAt(event.pos());
  if (!shown) return false;
  const QString tip = ToolTipOf(values_.ValueOf(shown->line), *area_->screen());
  QToolTip::showText(event.globalPos(), tip, area_->viewport(), shown->place.toAlignedRect());
  return true;
}

bool ValueDisplay::Press(const QMouseEvent& event) {
  if (isForwarding_) return false;
  pressed_.reset();
  const QPoint place = event.position().toPoint();
  if (event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier && ShownAt(place)) pressed_ = place;
  return pressed_.has_value();
}

// A drag that begins on a value selects text: the text area then receives the press that was withheld from it. Moves
// without a button only set the pointer, because the text area does not use them.
bool ValueDisplay::Move(const QMouseEvent& event) {
  const QPoint place = event.position().toPoint();
  if (event.buttons() == Qt::NoButton) {
    const QCursor cursor = ShownAt(place) ? QCursor(Qt::PointingHandCursor) : cursorOfText_;
    if (cursor.shape() != area_->viewport()->cursor().shape()) area_->viewport()->setCursor(cursor);
    return true;
  }
  if (!pressed_) return false;
  if ((place - *pressed_).manhattanLength() < QApplication::startDragDistance()) return true;
  const QPoint start = *std::exchange(pressed_, std::nullopt);
  QMouseEvent press(QEvent::MouseButtonPress, start, area_->viewport()->mapToGlobal(start), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  isForwarding_ = true;
  QCoreApplication::sendEvent(area_->viewport(), &press);
  isForwarding_ = false;
  return false;
}

bool ValueDisplay::Release(const QMouseEvent& event) {
  if (!pressed_ || event.button() != Qt::LeftButton) return false;
  const std::optional<Shown> shown = ShownAt(*std::exchange(pressed_, std::nullopt));
  if (shown && Clicked) Clicked(shown->line);
  return true;
}

bool ValueDisplay::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Paint:
      Paint(static_cast<const QPaintEvent*>(event)->rect());
      return false;
    case QEvent::Resize:
      HideToolTip(*area_->viewport());
      return false;
    case QEvent::ToolTip:
      return ShowToolTip(static_cast<const QHelpEvent&>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return Press(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
      return Move(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
      return Release(static_cast<const QMouseEvent&>(*event));
    default:
      return QObject::eventFilter(watched, event);
  }
}

}  // namespace sumlet
