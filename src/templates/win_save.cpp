#include "templates/win_save.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QPointer>
#include <QRectF>
#include <QSize>
#include <QString>
#include <limits>

#include "framework/desktop.h"
#include "framework/text/text.h"
#include "framework/ui/fitting_font.h"
#include "framework/ui/placement.h"
#include "framework/ui/plain_style.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

constexpr QSize fixedSize(361, 109);

// Draws its own border, in the highlight colour while it has the focus, because some styles draw neither a border nor a
// focus frame around a field of this height. PlainStyle draws only the text.
class BorderedField final : public QLineEdit {
 public:
  explicit BorderedField(QWidget* parent) : QLineEdit(parent) {
    setStyle(&PlainStyle());
    setFrame(false);
    setTextMargins(2 * border, border, 2 * border, border);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLineEdit::paintEvent(event);
    constexpr QColor restingColor(0x8C, 0x8C, 0x8C);
    QPainter painter(this);
    const int width = hasFocus() ? border : 1;
    QPen pen(hasFocus() ? AccentColor(palette()) : restingColor, width);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    const qreal middle = width / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(middle, middle, -middle, -middle));
  }

 private:
  static constexpr int border = 2;  // pixels
};

}  // namespace

winSave::winSave() { Create(); }

void winSave::Layout() {
  setWindowTitle(tr("Untitled"));
  SetFrame(Frame::Sheet);
  SetSizeLimits(fixedSize, fixedSize);
  SetWidth(fixedSize.width());
  SetHeight(fixedSize.height());
}

void winSave::CreateControls() {
  lblPrompt_ = new QLabel(Content());
  lblPrompt_->setTextFormat(Qt::PlainText);
  AddControl(*lblPrompt_, {20, 10, 321, 20}, Lock::Left | Lock::Top);

  textName_ = new BorderedField(Content());
  textName_->setMaxLength(std::numeric_limits<int>::max());
  AddControl(*textName_, {20, 42, 321, 22}, Lock::Left | Lock::Top);
  constexpr int frame = 2;  // between the field's edge and the text, in pixels
  textName_->setFont(FittingFont(textName_->font(), {}, textName_->size() - QSize(0, 2 * frame)));

  btnCancel_ = new PushButton(tr("Cancel"), Content());
  connect(btnCancel_, &QPushButton::clicked, this, [this] { btnCancel_Action(); });
  AddControl(*btnCancel_, {169, 76, 80, 20}, Lock::Right | Lock::Top);
  SetCancelButton(*btnCancel_);

  btnSave_ = new PushButton(tr("Save"), Content());
  connect(btnSave_, &QPushButton::clicked, this, [this] { btnSave_Action(); });
  AddControl(*btnSave_, {261, 76, 80, 20}, Lock::Right | Lock::Top);
  SetDefaultButton(*btnSave_);

  SetPrompt("Please provide a name:");
  textName_->setFocus();
}

void winSave::SetPrompt(std::string_view prompt) {
  const QString text = ToQString(prompt);
  lblPrompt_->setText(text);
  lblPrompt_->setFont(FittingFont(font(), text, lblPrompt_->size()));
  textName_->setAccessibleName(text);
}

// The handler runs while the sheet is open, because it may show a question. If the program quits meanwhile, this sheet
// may have been destroyed.
void winSave::btnSave_Action() {
  const String name = Trim(FromQString(textName_->text()));
  textName_->setText(ToQString(name));
  if (name.empty()) {
    MsgBox("Text can not be empty.");
    return;
  }
  const QPointer<winSave> alive = this;
  saved_ = true;
  if (ref) {
    ref->Text = name;
    ref->DoEventSaved();
  }
  if (alive) Close();
}

void winSave::btnCancel_Action() { Close(); }

// Closing the sheet in any way without saving cancels.
bool winSave::Event_CancelClose(bool /*appQuitting*/) {
  if (!saved_ && ref) ref->DoEventCancel();
  return false;
}

}  // namespace sumlet
