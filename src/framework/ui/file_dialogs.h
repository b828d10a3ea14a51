// The desktop's dialogs for choosing files.
#pragma once

#include <optional>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/hook.h"
#include "framework/text/text.h"

namespace sumlet {

class Window;

// Asks for existing files. ShowModal returns none if the user cancels.
struct OpenDialog {
  String PromptText;
  String Filter;  // the name of a file type and its patterns: "Text (*.txt *.asc)"
  [[nodiscard]] std::vector<FolderItem> ShowModal() const;
};

// Asks where to write a file. If the file exists, the dialog asks whether to replace it. ShowModalWithin returns
// nothing if the user cancels.
struct SaveAsDialog {
  String SuggestedFileName;
  [[nodiscard]] std::optional<FolderItem> ShowModalWithin(Window& parent) const;
};

// Show the dialogs. A handler replaces the desktop's dialog.
extern Hook<std::vector<FolderItem>(const OpenDialog& dialog)> ShowOpenDialog;
extern Hook<std::optional<FolderItem>(const SaveAsDialog& dialog, Window& parent)> ShowSaveAsDialog;

}  // namespace sumlet
