// winSumlet: the document window. The user types the equation into its upper area; the strip below shows the result.
//
// A caller that fills a window calls SetEquation, or follows its steps: sets Loading, sets the text of textInput,
// clears Loading and calls Calculate. The text then does not count as typed, and the result is shown immediately.
#pragma once

#include <QRect>
#include <memory>
#include <string_view>

#include "engine/math_class.h"
#include "equationwindow/line_values.h"
#include "equationwindow/value_display.h"
#include "framework/hook.h"
#include "framework/text/text.h"
#include "framework/ui/base_window.h"
#include "framework/ui/text_area.h"
#include "framework/ui/timer.h"
#include "persistence/my_window_manager.h"
#include "templates/name_provider_dialog.h"

namespace sumlet {

class winSumlet final : public BaseWindow, public MyWindowManager::StoredWindow {
 public:
  // Opens an empty equation window, which owns itself. A window that is not `visible` waits for Show.
  explicit winSumlet(bool visible = true);

  // The name of the template or file that the equation came from; empty for a new one.
  String FromTemplate;
  // In points. ApplyTextSize applies it to the text.
  Int32 TextSize = 13;
  // Unused. Loading is what keeps changes by program from counting as typing.
  bool bIgnoreTextChange = false;
  // True while a caller fills textInput by program.
  bool Loading = false;
  std::unique_ptr<MathClass> math;

  // Saves the session some time later. Called after each change of the text that the user makes.
  static Hook<void()> ScheduleSave;

  // Makes the text of all equations larger by `steps` sizes, or smaller if negative. Called when the user turns the
  // wheel with Ctrl.
  static Hook<void(Int32 steps)> StepTextSize;

  [[nodiscard]] TextArea& textInput() const { return *textInput_; }
  [[nodiscard]] TextArea& textOutput() const { return *textOutput_; }
  [[nodiscard]] Timer& tmrCalculate() { return tmrCalculate_; }
  // Nullptr while line values are not shown.
  [[nodiscard]] const ValueDisplay* valueDisplay() const { return valueDisplay_.get(); }
  [[nodiscard]] NameProviderDialog& TemplateSaver() { return TemplateSaver_; }

  // The bounds of the window before it last went to full screen, in pixels; all 0 until then.
  Int32 NonFullscreenLeft = 0;
  Int32 NonFullscreenTop = 0;
  Int32 NonFullscreenWidth = 0;
  Int32 NonFullscreenHeight = 0;

  // The first line of the equation that is not blank, trimmed; empty when there is none.
  [[nodiscard]] String GetFirstLine() const;

  // The commands. Each returns true: handled.

  // Asks for a file name and writes the text there. Reports a failure by an alert.
  bool _FileExport_Action();

  // Asks for a name on a sheet and, if the user gives one, adds the equation to the templates.
  bool _FileSaveAsTemplate_Action();

  // Copies the result, or the error, as the strip shows it.
  bool _EditCopyResult_Action();

  // Moves the focus to the equation and the caret to the end of the line that failed. Does nothing without an error.
  bool _EditGoToError_Action();

  // Copies the value of the line with the caret.
  bool _EditCopyLineValue_Action();

  // Copies the selected lines, or all without a selection, each with its value (value_text.h).
  bool _EditCopyWithValues_Action();

  // Shows an equation that was not typed, and its result. Schedules no save. `name` is that of its template or file.
  void SetEquation(std::string_view name, std::string_view text);

  // Evaluates the whole equation and shows its result.
  void Calculate();

  // Sets the text size of both areas, in points, and arranges them.
  void ApplyTextSize(Int32 size);

  // Shows or hides the value of each line beside it. Showing the values evaluates the equation.
  void ShowLineValues(bool shown);

  // Writes the text, position, size and text size into a record of the session, and opens a window from one.
  void StoreRecord(KeyList& record) const override;
  static void RestoreFrom(const MyWindowManager::Record& record);

 protected:
  void Layout() override;
  void CreateControls() override;
  void AddMenuHandlers() override;
  void Event_EnableMenuItems(MenuBar& menuBar) override;
  bool Event_CancelClose(bool appQuitting) override;
  void Event_FullScreen() override;
  void Event_Open() override;
  void Event_Resized() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  static constexpr Int32 smallestSize = 64;  // of the content, either way, in pixels

  void _CreateControls0();
  void textInput_TextChange(TextArea& sender);
  void tmrCalculate_Action(Timer& sender);
  void TemplateSaver_Saved(const NameProviderDialog& sender);
  bool TurnWheel(const QWheelEvent& event);
  bool DoubleClickResult(const QMouseEvent& event);
  [[nodiscard]] bool IsCalculationDue() const { return tmrCalculate_.Mode() == TimerMode::Single; }
  void CalculateIfDue();
  void ShowResult();
  void Announce(std::string_view text);
  // Tells screen readers `notice`, and the result again two seconds later.
  void AnnounceTemporarily(std::string_view notice);
  [[nodiscard]] LineValues CurrentValues();
  [[nodiscard]] bool LineMayHaveValue(Int32 line) const;
  void CopyValue(Int32 line, std::string_view value);
  void SyntaxColoring();
  void ArrangeControls();
  void StoreWindowedBounds();
  void delayToggleFullscreen();
  void tmrDelayToggleFullscreen_Action(Timer& sender);

  TextArea* textInput_ = nullptr;
  TextArea* textOutput_ = nullptr;
  std::unique_ptr<ValueDisplay> valueDisplay_;  // while values are shown
  Timer tmrCalculate_;
  Timer tmrNotice_;
  NameProviderDialog TemplateSaver_;
  Timer tmrDelayToggleFullscreen_;
  int wheelTurn_ = 0;     // the rest of a step, in eighths of a degree
  QRect restoredBounds_;  // of a window about to be restored to full screen; see delayToggleFullscreen
};

}  // namespace sumlet
