// Whole files in and out.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// The content of a regular file of at most 1 GiB, or nothing when it cannot be had.
[[nodiscard]] std::optional<String> ReadContent(const std::filesystem::path& path);

// Makes `content` the content of the file, in place. False when that cannot be; the file is then unchanged.
[[nodiscard]] bool ReplaceContent(const std::filesystem::path& path, std::string_view content);

}  // namespace sumlet
