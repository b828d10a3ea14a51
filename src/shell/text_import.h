// Text files into equation windows.
#pragma once

#include <string_view>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/text/text.h"

namespace sumlet {

// Asks for files and opens an equation window for each. Those that cannot be read, and those without any text, are
// named in one dialog at the end.
void ImportTextFiles();

// The name that an equation takes from its file: without the first ".txt", wherever it stands.
[[nodiscard]] String EquationName(std::string_view fileName);

}  // namespace sumlet
