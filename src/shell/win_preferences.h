// winPreferences: the two settings that the user has. A change holds at once and goes to disk with the next save.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "framework/ui/base_window.h"

namespace sumlet {

class winPreferences final : public BaseWindow {
 public:
  // The open window, or a new one when none is open. It owns itself.
  static winPreferences& Instance();

  // The offered size that is `steps` larger than `size`, or smaller if negative, in points. Stops at the ends of the
  // list of offered sizes. `size` need not be one of them.
  [[nodiscard]] static Int32 TextSizeAfter(Int32 size, Int32 steps);
  // Makes an offered size that of all equations: what choosing it in the window does. An open window shows it.
  static void ChooseTextSize(Int32 size);

  [[nodiscard]] QCheckBox& chkRestoreEquations() const { return *chkRestoreEquations_; }
  [[nodiscard]] QComboBox& popSize() const { return *popSize_; }

 protected:
  void Layout() override;
  void CreateControls() override;
  void Event_Open() override;

 private:
  winPreferences();

  void FitCaptions();
  void FillSizes();
  void chkRestoreEquations_Action();
  void popSize_Change();

  QCheckBox* chkRestoreEquations_ = nullptr;
  QLabel* Label1_ = nullptr;
  QComboBox* popSize_ = nullptr;
};

}  // namespace sumlet
