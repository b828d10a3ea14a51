// winSumlet: the document window. The equation is typed into its upper area, the result stands in the strip below.
//
// Whoever fills a window by program sets Loading, sets the text of textInput, clears Loading and calls Calculate, so
// that the text does not count as typed and the result is there at once.
#pragma once

#include <functional>
#include <memory>

#include "engine/math_class.h"
#include "framework/ui/base_window.h"
#include "framework/ui/text_area.h"
#include "framework/ui/timer.h"

namespace sumlet {

class winSumlet final : public BaseWindow {
 public:
  // Opens an empty equation window. It owns itself.
  winSumlet();

  // The name that the equation came from; empty for a new one.
  String FromTemplate;
  // In points. Takes effect on the text by ApplyTextSize.
  Int32 TextSize = 13;
  // Part of the class's record; nothing sets or reads it. The guard is Loading.
  bool bIgnoreTextChange = false;
  // True while a caller fills textInput by program.
  bool Loading = false;
  std::unique_ptr<MathClass> math;

  // Called after each text change that is not Loading; the application saves some time later. May be empty.
  static std::function<void()> ScheduleSave;

  [[nodiscard]] TextArea& textInput() const { return *textInput_; }
  [[nodiscard]] TextArea& textOutput() const { return *textOutput_; }
  [[nodiscard]] Timer& tmrCalculate() { return tmrCalculate_; }

  // Evaluates the whole equation and shows its result.
  void Calculate();

  // Gives both areas the text size, in points, and lays them out anew.
  void ApplyTextSize(Int32 size);

 protected:
  void Layout() override;
  void CreateControls() override;
  void Event_Open() override;
  void Event_Resized() override;

 private:
  void _CreateControls0();
  void textInput_TextChange(TextArea& sender);
  void tmrCalculate_Action(Timer& sender);
  void SyntaxColoring();
  void ArrangeControls();

  TextArea* textInput_ = nullptr;
  TextArea* textOutput_ = nullptr;
  Timer tmrCalculate_;
};

}  // namespace sumlet
