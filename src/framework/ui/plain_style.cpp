#include "framework/ui/plain_style.h"

#include <QGuiApplication>
#include <QScrollBar>
#include <QString>
#include <QStyleFactory>
#include <cstdlib>

namespace sumlet {

QStyle& PlainStyle() {
  static QStyle* const style = QStyleFactory::create(QStringLiteral("Fusion"));
  return *style;
}

QColor AccentColor(const QPalette& palette) {
  constexpr int smallestContrast = 64;  // difference of lightness, which is 0 to 255
  const QColor accent = palette.color(QPalette::Highlight);
  const QColor text = palette.color(QPalette::ButtonText);
  if (std::abs(accent.lightness() - palette.color(QPalette::Button).lightness()) >= smallestContrast) return accent;
  return {(accent.red() + text.red()) / 2, (accent.green() + text.green()) / 2, (accent.blue() + text.blue()) / 2};
}

QPalette PaperPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::WindowText, QColor(0xA8, 0xA8, 0xA8));
  return palette;
}

// Some styles for dark desktops ignore the palette of scroll bars, and others draw the bar over the text. In both cases
// the area and its bar use the plain style, otherwise the desktop's.
void UseLightScrollBar(QAbstractScrollArea& area) {
  constexpr QColor lightGrey(0xEF, 0xEF, 0xEF);
  constexpr int medium = 128;  // lightness, which is 0 to 255
  QScrollBar& bar = *area.verticalScrollBar();
  bar.setPalette(QPalette(lightGrey));
  const bool isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < medium;
  const bool isOverText = area.style()->styleHint(QStyle::SH_ScrollBar_Transient, nullptr, &bar) != 0;
  if (!isDark && !isOverText) return;
  area.setStyle(&PlainStyle());
  bar.setStyle(&PlainStyle());
}

}  // namespace sumlet
