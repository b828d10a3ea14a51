// winPreferences: the user's two settings. A change takes effect at once; the next save stores it.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "framework/text/text.h"
#include "framework/ui/base_window.h"

namespace sumlet {

class winPreferences final : public BaseWindow {
 public:
  // The open window, or else a new one. It deletes itself when closed.
  static winPreferences& Instance();

  // The size, in points, that is `steps` sizes larger than `size` in the list of offered sizes; smaller if negative.
  // Stops at the ends of the list. `size` need not be in the list.
  [[nodiscard]] static Int32 TextSizeAfter(Int32 size, Int32 steps);
  // Sets the text size of all equations, as choosing it in the window does. An open window shows it.
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
