// The desktop's dialogs for choosing files.
#pragma once

#include <optional>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/hook.h"
#include "framework/text/text.h"

namespace sumlet {

class Window;

// Any number of existing files; none when the user cancels.
struct OpenDialog {
  String PromptText;
  String Filter;  // the name of a kind of files and its patterns: "Text (*.txt *.asc)"
  [[nodiscard]] std::vector<FolderItem> ShowModal() const;
};

// The place of a file to be written, which may exist: the dialog has then asked whether to replace it. Nothing when the
// user cancels.
struct SaveAsDialog {
  String SuggestedFileName;
  [[nodiscard]] std::optional<FolderItem> ShowModalWithin(Window& parent) const;
};

// Handlers replace the desktop's dialogs.
extern Hook<std::vector<FolderItem>(const OpenDialog& dialog)> ShowOpenDialog;
extern Hook<std::optional<FolderItem>(const SaveAsDialog& dialog, Window& parent)> ShowSaveAsDialog;

}  // namespace sumlet
