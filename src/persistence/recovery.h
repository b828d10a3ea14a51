// Recovery: a copy of the settings, in the file "recovery" beside the settings file, that brings back after a crash, a
// kill or a power failure what the settings file does not hold.
//
// It exists from the first change that is not saved until the settings file is safely on the disk. So a start that
// finds one follows a run that did not end properly. Its content is that of a settings file; docs/settings-format.md.
//
// All functions take the path of the settings file.
#pragma once

#include <optional>

#include "framework/file/folder_item.h"
#include "framework/text/text.h"

namespace sumlet::Recovery {

// The content of the recovery file; nothing when there is none. Renames a damaged one to "recovery.damaged".
[[nodiscard]] std::optional<String> Read(const FolderItem& settings);

[[nodiscard]] bool Exists(const FolderItem& settings);

// Whether a write in the background is under way.
[[nodiscard]] bool IsBusy();
// Waits until none is. Blocks for as long as the disk takes.
void Wait();

// Writes the recovery file in the background, so that a slow disk does not hold up the event thread. Waits first while
// it is busy.
void Write(const FolderItem& settings, String content);

// Overwrites the settings file in place. The recovery file has the same content before the first byte is overwritten,
// so an interrupted write loses nothing. Then flushes the settings file and deletes the recovery file, in the
// background. When the settings file cannot be written, the recovery file stays.
void Save(const FolderItem& settings, const String& content);

}  // namespace sumlet::Recovery
