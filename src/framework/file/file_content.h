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

// Makes `content` the content of the file, in place. False when that cannot be, or when there is a file that
// ReadContent would not read, or could not read afterwards; the file is then unchanged.
[[nodiscard]] bool ReplaceContent(const std::filesystem::path& path, std::string_view content);

}  // namespace sumlet
