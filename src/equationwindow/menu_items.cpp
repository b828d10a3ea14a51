// The menu items that an equation window answers.
#include "equationwindow/win_sumlet.h"
#include "framework/ui/menu_bar.h"

namespace sumlet {

void winSumlet::AddMenuHandlers() {
  BindMenuHandler("FileSaveAsTemplate", [this] { return _FileSaveAsTemplate_Action(); });
  BindMenuHandler("FileExport", [this] { return _FileExport_Action(); });
}

void winSumlet::Event_EnableMenuItems(MenuBar& menuBar) {
  if (!Trim(textInput().Text()).empty()) menuBar.Enable("FileSaveAsTemplate");
}

String winSumlet::GetFirstLine() const {
  const String text = textInput().Text();
  LineReader lines(text);
  for (std::string_view line; lines.Next(line);) {
    if (const std::string_view trimmed = Trimmed(line); !trimmed.empty()) return String(trimmed);
  }
  return {};
}

}  // namespace sumlet
