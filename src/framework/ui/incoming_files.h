// Files that the user drops on a window or pastes into a text.
#pragma once

#include <functional>
#include <vector>

#include "framework/file/folder_item.h"

class QMimeData;
class QWidget;

namespace sumlet {

// The files on this machine whose addresses `data` holds. Addresses on the web are none.
[[nodiscard]] std::vector<FolderItem> FilesIn(const QMimeData& data);

// Sets what opens incoming files. It may show dialogs.
void SetFileOpener(std::function<void(const std::vector<FolderItem>& files)> open);

// Hands the files in `data` to the opener, from the event loop: the program that they come from waits for the end of
// the drop.
void OpenIncoming(const QMimeData& data);

// Lets files be dropped on `window`, also on its controls as far as they do not take the drag themselves.
void AcceptFiles(QWidget& window);

}  // namespace sumlet
