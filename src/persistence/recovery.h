// Recovery: the recovery file, a copy of the settings file with the changes since the last save. It restores them after
// a crash, a kill or a power failure.
//
// The file "recovery" lies beside the settings file and has the same format. It exists from the first unsaved change
// until the settings file is on the disk. So a start that finds it follows a run that did not end properly.
//
// All functions take the path of the settings file.
#pragma once

#include <optional>

#include "framework/file/folder_item.h"
#include "framework/text/text.h"

namespace sumlet::Recovery {

// The content of the recovery file, if there is one. Renames a damaged one to "recovery.damaged".
[[nodiscard]] std::optional<String> Read(const FolderItem& settings);

[[nodiscard]] bool Exists(const FolderItem& settings);

// Whether a write is running in the background.
[[nodiscard]] bool IsBusy();
// Blocks until no write is running, without a time limit.
void Wait();

// Writes the recovery file in the background, so that a slow disk does not block the event thread. Waits for an earlier
// write first.
void Write(const FolderItem& settings, String content);

// Overwrites the settings file in place. Writes the recovery file first, so that an interrupted write loses nothing.
// Then flushes the settings file and deletes the recovery file, in the background. Keeps the recovery file if the
// settings file cannot be written.
void Save(const FolderItem& settings, const String& content);

}  // namespace sumlet::Recovery
