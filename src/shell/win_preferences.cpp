#include "shell/win_preferences.h"

#include <QFont>
#include <QSignalBlocker>
#include <QSize>
#include <QString>
#include <algorithm>
#include <array>
#include <initializer_list>

#include "equationwindow/win_sumlet.h"
#include "framework/text/numbers.h"
#include "framework/ui/fitting_font.h"
#include "framework/ui/placement.h"
#include "framework/ui/qt_text.h"
#include "framework/ui/window.h"
#include "persistence/preferences.h"

namespace sumlet {
namespace {
constexpr QSize fixedSize(319, 86);
constexpr std::array offeredSizes = {11, 13, 16, 20, 24, 36, 48, 64, 72, 96};  // points
}  // namespace

winPreferences& winPreferences::Instance() {
  winPreferences* open = OpenWindow<winPreferences>();
  return open ? *open : *new winPreferences;
}

winPreferences::winPreferences() { Create(); }

void winPreferences::Layout() {
  setWindowTitle(tr("Preferences"));
  SetFixed(fixedSize);
  SetEscapeCloses();
}

void winPreferences::CreateControls() {
  chkRestoreEquations_ = new QCheckBox(tr("Restore Open Equations on Startup"), Content());
  connect(chkRestoreEquations_, &QCheckBox::toggled, this, [this] { chkRestoreEquations_Action(); });
  AddControl(*chkRestoreEquations_, {36, 48, 246, 20}, Lock::Left | Lock::Top);

  Label1_ = new QLabel(tr("Text Size"), Content());
  Label1_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  AddControl(*Label1_, {69, 17, 62, 20}, Lock::Left | Lock::Top);

  popSize_ = new QComboBox(Content());
  Label1_->setBuddy(popSize_);  // names the popup for screen readers
  connect(popSize_, &QComboBox::currentIndexChanged, this, [this] { popSize_Change(); });
  AddControl(*popSize_, {137, 17, 112, 20}, Lock::Left | Lock::Top);
  FitCaptions();
}

// Gives all three controls the largest font, at most the desktop's, in which each shows its whole text.
void winPreferences::FitCaptions() {
  constexpr QSize frameAndArrow(40, 2);  // of the popup, in pixels
  const QString caption = chkRestoreEquations_->text();
  const int box =
      chkRestoreEquations_->sizeHint().width() - chkRestoreEquations_->fontMetrics().horizontalAdvance(caption);
  QFont fitting = FittingFont(font(), caption, chkRestoreEquations_->size() - QSize(box, 0));
  fitting = FittingFont(fitting, Label1_->text(), Label1_->size());
  fitting = FittingFont(fitting, QStringLiteral("96"), popSize_->size() - frameAndArrow);
  for (QWidget* control : std::initializer_list<QWidget*>{chkRestoreEquations_, Label1_, popSize_})
    control->setFont(fitting);
}

void winPreferences::Event_Open() {
  Loading = true;
  chkRestoreEquations_->setChecked(Preferences::RememberEquations);
  FillSizes();
  Loading = false;
}

// Shows a size that is not offered, as from an older settings file, above the others and a separator.
void winPreferences::FillSizes() {
  int current = -1;
  for (const Int32 size : offeredSizes) {
    popSize_->addItem(ToQString(Str(size)));
    if (size == Preferences::TextSize) current = popSize_->count() - 1;
  }
  if (current == -1) {
    popSize_->insertSeparator(0);
    popSize_->insertItem(0, ToQString(Str(Preferences::TextSize)));
    current = 0;
  }
  popSize_->setCurrentIndex(current);
  popSize_->setMaxVisibleItems(popSize_->count());  // no scroll bar
}

void winPreferences::popSize_Change() {
  if (!Loading) ChooseTextSize(ToInt32(Val(FromQString(popSize_->currentText()))));
}

Int32 winPreferences::TextSizeAfter(Int32 size, Int32 steps) {
  for (; steps > 0; --steps) {
    const auto* larger = std::ranges::upper_bound(offeredSizes, size);
    if (larger != offeredSizes.end()) size = *larger;
  }
  for (; steps < 0; ++steps) {
    const auto* notSmaller = std::ranges::lower_bound(offeredSizes, size);
    if (notSmaller != offeredSizes.begin()) size = *(notSmaller - 1);
  }
  return size;
}

void winPreferences::ChooseTextSize(Int32 size) {
  Preferences::TextSize = size;
  for (Int32 i = WindowCount() - 1; i >= 0; --i)
    if (auto* equation = dynamic_cast<winSumlet*>(&WindowAt(i))) equation->ApplyTextSize(size);
  const auto* open = OpenWindow<winPreferences>();
  if (open == nullptr) return;
  const QSignalBlocker blocker(open->popSize());
  open->popSize().setCurrentText(ToQString(Str(size)));
}

void winPreferences::chkRestoreEquations_Action() {
  if (!Loading) Preferences::RememberEquations = chkRestoreEquations_->isChecked();
}

}  // namespace sumlet
