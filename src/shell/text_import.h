// Imports text files into equation windows.
#pragma once

#include <string_view>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/text/array.h"
#include "framework/text/text.h"

namespace sumlet {

enum class FileKinds {
  Any,
  Text  // those that the desktop considers text, by their name or content
};

// Opens an equation window for each file of these kinds that can be read and holds any text. Returns the names of the
// others, followed by the reason for those that are too large.
[[nodiscard]] Array<String> OpenTextFiles(const std::vector<FolderItem>& files, FileKinds kinds = FileKinds::Any);

// Lists the files that OpenTextFiles could not open in one dialog. Does nothing if there are none.
void ReportUnopened(const Array<String>& names);

// Asks the user for files, opens them, and lists those that it cannot open.
void ImportTextFiles();

// The name of an equation from a file: `fileName` without its first ".txt", at any position.
[[nodiscard]] String EquationName(std::string_view fileName);

}  // namespace sumlet
