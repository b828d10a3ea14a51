#include "shell/win_about.h"

#include <QCoreApplication>
#include <QIcon>
#include <QPainter>
#include <QRect>
#include <QSize>

#include "framework/ui/fitting_font.h"
#include "shell/application_icon.h"

namespace sumlet {
namespace {

constexpr QSize fixedSize(284, 158);

// Paints the size of the icon that fits the scale of the window's current screen.
class IconCanvas final : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (icon_.isNull()) icon_ = ApplicationIcon();
    QPainter painter(this);
    icon_.paint(&painter, rect());
  }

 private:
  QIcon icon_;
};

}  // namespace

winAbout& winAbout::Instance() {
  winAbout* open = OpenWindow<winAbout>();
  return open ? *open : *new winAbout;
}

winAbout::winAbout() { Create(); }

void winAbout::Layout() {
  setWindowTitle(QStringLiteral("Sumlet"));  // an empty title would show the program file's name
  setAccessibleName(tr("About Sumlet"));
  SetFixed(fixedSize);
  SetEscapeCloses();
}

void winAbout::CreateControls() {
  cIcon_ = new IconCanvas(Content());
  AddControl(*cIcon_, {110, 14, 64, 64}, {});
  stApp_ = CreateLabel(tr("Sumlet"), {20, 84, 244, 20}, QFont::Bold);
  stVersion_ = CreateLabel(tr("Version ") + QCoreApplication::applicationVersion(), {21, 107, 244, 20}, QFont::Normal);
  stCopyright_ = CreateLabel(tr("© 2026 The Sumlet developers"), {20, 132, 244, 20}, QFont::Normal);
  Content()->setFocus();  // Tab reaches the texts, but none has the caret at first
}

// Uses a smaller font if the text does not fit in the desktop's font.
QLabel* winAbout::CreateLabel(const QString& text, const QRect& bounds, QFont::Weight weight) {
  auto* label = new QLabel(text, Content());
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setFocusPolicy(Qt::StrongFocus);
  QFont font = label->font();
  font.setWeight(weight);
  label->setFont(FittingFont(font, text, bounds.size()));
  AddControl(*label, bounds, {});
  return label;
}

}  // namespace sumlet
