// Files that the user drops on a window or pastes into a text.
#pragma once

#include <vector>

#include "framework/file/folder_item.h"
#include "framework/hook.h"

class QMimeData;
class QWidget;

namespace sumlet {

// The files on this machine whose addresses `data` holds. Addresses on the web are none.
[[nodiscard]] std::vector<FolderItem> FilesIn(const QMimeData& data);

// Opens incoming files. May show dialogs.
extern Hook<void(const std::vector<FolderItem>& files)> OpenFiles;

// Calls OpenFiles with the files in `data`, from the event loop, because the program that they come from waits for the
// end of the drop.
void OpenIncoming(const QMimeData& data);

// Lets files be dropped on `window`, also on its controls as far as they do not take the drag themselves.
void AcceptFiles(QWidget& window);

}  // namespace sumlet
