// Temporary files that other users cannot create, read or replace: each is in a new folder that only the user can
// enter.
#pragma once

#include <optional>

#include "framework/file/folder_item.h"

namespace sumlet {

// Returns the path of a file that does not exist, in a new folder in the system's folder for temporary files ($TMPDIR).
// Empty if the folder cannot be created.
[[nodiscard]] std::optional<FolderItem> GetTemporaryFolderItem();

// Creates the folder of such a file again after DeleteTemporary, or accepts it if it exists and only the user can enter
// it. Returns false if that fails or somebody else has taken the name.
[[nodiscard]] bool RemakeTemporaryFolder(const FolderItem& item);

// Deletes the folder of such a file and everything in it.
void DeleteTemporary(const FolderItem& item);

}  // namespace sumlet
