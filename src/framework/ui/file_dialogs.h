// The desktop's dialogs for choosing files. Who shows them is a hook, so that a test can answer.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "framework/file/folder_item.h"
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

struct FileDialogHandlers {
  std::function<std::vector<FolderItem>(const OpenDialog& dialog)> open;
  std::function<std::optional<FolderItem>(const SaveAsDialog& dialog, Window& parent)> saveAs;
};
// Takes the place of the desktop's dialogs; empty handlers bring them back.
void SetFileDialogs(FileDialogHandlers handlers);

}  // namespace sumlet
