// Whole files in and out.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// In bytes. More than any real content takes, and little enough to hold several copies of it in memory.
inline constexpr std::size_t largestContent = std::size_t{256} << 20;

// The content of a regular file of at most `largestContent`, or nothing when it cannot be had.
[[nodiscard]] std::optional<String> ReadContent(const std::filesystem::path& path);

// Overwrites the file in place, or creates it, for its owner alone. A process that is killed meanwhile leaves the file
// torn. False when the file cannot be opened, the disk has no room, or the file is one that ReadContent would not read
// or could not read afterwards; the old content is then unchanged.
[[nodiscard]] bool OverwriteContent(const std::filesystem::path& path, std::string_view content);

// Puts a new file in the place of `path`, for its owner alone, and flushes it to the disk. At any instant, also when
// the machine goes down, there is the old file or the new one, whole. A second file, `path` with ".new" behind it,
// exists meanwhile, and stays when the process is killed. False when the new file cannot be written; the old one then
// stays.
[[nodiscard]] bool ReplaceFile(const std::filesystem::path& path, std::string_view content);

// Flushes what has been written to the file, and its name, to the disk. False when that failed.
[[nodiscard]] bool FlushFile(const std::filesystem::path& path);

}  // namespace sumlet
