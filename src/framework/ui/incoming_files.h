// Files that the user drops on a window or pastes into a text.
#pragma once

#include <vector>

#include "framework/file/folder_item.h"
#include "framework/hook.h"

class QMimeData;
class QWidget;

namespace sumlet {

// Returns the local files whose URLs `data` contains. Ignores other URLs.
[[nodiscard]] std::vector<FolderItem> FilesIn(const QMimeData& data);

// Opens incoming files. May show dialogs.
extern Hook<void(const std::vector<FolderItem>& files)> OpenFiles;

// Calls OpenFiles with the files in `data`, later from the event loop, because the program that the user drags from is
// blocked until the drop ends.
void OpenIncoming(const QMimeData& data);

// Accepts files that the user drops on `window`, or on those of its controls that ignore the drag.
void AcceptFiles(QWidget& window);

}  // namespace sumlet
