// Reads and writes whole files.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// In bytes. Larger than any real content, small enough for several copies in memory.
inline constexpr std::size_t largestContent = std::size_t{256} << 20;

// Returns the content of a regular file of at most `largestContent`. Empty if that is not possible.
[[nodiscard]] std::optional<String> ReadContent(const std::filesystem::path& path);

// Overwrites the file in place, or creates it with access for its owner only. If the process is killed during the
// write, the file can be torn. Returns false, with the old content unchanged, if the file cannot be opened, the disk
// has no space, the file is not a regular one, or `content` is larger than ReadContent accepts.
[[nodiscard]] bool OverwriteContent(const std::filesystem::path& path, std::string_view content);

// Replaces the file atomically by a new one with access for its owner only, and flushes it to the disk. A power failure
// leaves either the old or the new file. Uses a temporary file, `path` plus ".new", which remains if the process is
// killed. Returns false, with the old file unchanged, if the new one cannot be written.
[[nodiscard]] bool ReplaceFile(const std::filesystem::path& path, std::string_view content);

// Flushes the content and the name of the file to the disk. Returns whether that succeeded.
[[nodiscard]] bool FlushFile(const std::filesystem::path& path);

}  // namespace sumlet
