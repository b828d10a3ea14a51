// winHelp: a reference card of the line language, a list of two columns.
#pragma once

#include "framework/text/text.h"
#include "framework/ui/base_window.h"
#include "framework/ui/listbox.h"

namespace sumlet {

class winHelp final : public BaseWindow {
 public:
  // The open window, or else a new one. It deletes itself when closed.
  static winHelp& Instance();

  [[nodiscard]] Listbox& list() const { return *list_; }

 protected:
  void Layout() override;
  void CreateControls() override;

 private:
  winHelp();

  void FitFont(Int32 column, const char* text);
  void list_Open();
  static bool list_CellBackgroundPaint(CellGraphics& g, Int32 row, Int32 column);
  static bool list_CellTextPaint(CellGraphics& g, Int32 row, Int32 column);

  Listbox* list_ = nullptr;
};

}  // namespace sumlet
