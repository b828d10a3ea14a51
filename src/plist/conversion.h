// The binary form of property lists, which the system's tools read and write.
#pragma once

#include "framework/file/folder_item.h"

namespace sumlet {

enum class PropertyListForm { Xml, Binary };

// Rewrites a property list in place, in the other form, by plutil or, where that is missing, plistutil. Whether it
// could is not told: the tools do not tell it either. Takes at most ten seconds.
void ConvertPropertyList(const FolderItem& file, PropertyListForm form);

}  // namespace sumlet
