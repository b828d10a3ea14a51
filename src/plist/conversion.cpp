#include "plist/conversion.h"

#include "framework/file/program.h"

namespace sumlet {

void ConvertPropertyList(const FolderItem& file, PropertyListForm form) {
  constexpr std::chrono::seconds patience(10);
  const bool xml = form == PropertyListForm::Xml;
  const String path = file.AbsolutePath();
  if (RunProgram({"plutil", "-convert", xml ? "xml1" : "binary1", path}, patience) != ProgramEnd::NotFound) return;
  RunProgram({"plistutil", "-i", path, "-o", path, "-f", xml ? "xml" : "bin"}, patience);
}

}  // namespace sumlet
