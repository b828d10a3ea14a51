// Temporary files that nobody else can have made, read or put in the way: each lies in a folder of its own, which only
// the user can enter.
#pragma once

#include <optional>

#include "framework/file/folder_item.h"

namespace sumlet {

// The path of a file that does not exist, in a new folder below the system's one for temporary files ($TMPDIR). Nothing
// when the folder cannot be made.
[[nodiscard]] std::optional<FolderItem> GetTemporaryFolderItem();

// Makes the folder of an item from above once more, after DeleteTemporary; one that is still there, and still the
// user's alone, will do. False when that cannot be, or when another has taken its name.
[[nodiscard]] bool RemakeTemporaryFolder(const FolderItem& item);

// Deletes the folder of an item from above, with all that is in it.
void DeleteTemporary(const FolderItem& item);

}  // namespace sumlet
