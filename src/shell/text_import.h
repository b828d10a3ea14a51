// Text files into equation windows.
#pragma once

#include <string_view>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/text/text.h"

namespace sumlet {

enum class FileKinds {
  Any,
  Text  // what the desktop counts as text, by its name or its content
};

// Opens an equation window for each file of these kinds that can be read and holds any text. The others are the result:
// a name each, with the reason where it is none of these.
[[nodiscard]] Array<String> OpenTextFiles(const std::vector<FolderItem>& files, FileKinds kinds = FileKinds::Any);

// Names the files that OpenTextFiles could not open in one dialog. Does nothing when there are none.
void TellOfUnopened(const Array<String>& names);

// Asks for files, opens them, and names those that cannot be opened.
void ImportTextFiles();

// The name that an equation takes from its file: without the first ".txt", wherever it stands.
[[nodiscard]] String EquationName(std::string_view fileName);

}  // namespace sumlet
