#include "shell/text_import.h"

#include "equationwindow/win_sumlet.h"
#include "framework/message.h"
#include "framework/text/encoding.h"
#include "framework/ui/file_dialogs.h"

namespace sumlet {
namespace {

// The kinds of files that hold plain text. Users may choose others all the same.
constexpr std::string_view textFiles =
    "Text (*.asc *.ascii *.bas *.c *.class *.cp *.cpp *.h *.hp *.hpp *.i3 *.java *.m2 *.m3 *.mak *.text *.txt)";

// Far above any equation, and what a text area still handles.
constexpr std::size_t largestText = std::size_t{16} << 20;

// Nothing when a window has been opened, else the name of the file, and the reason where it needs one.
std::optional<String> Import(const FolderItem& file) {
  const std::filesystem::path& path = file.Path();
  const String name = (path.has_filename() ? path.filename() : path).string();  // without one: "folder/"
  const std::optional<String> content = file.ReadBinaryFile();
  if (content && content->size() > largestText) return name + " (larger than 16 MB)";
  const String text = content ? Trim(DecodeText(*content)) : String();
  if (text.empty()) return name;
  (new winSumlet)->SetEquation(EquationName(name), text);
  return {};
}

}  // namespace

String EquationName(std::string_view fileName) { return Replace(fileName, ".txt", ""); }

Array<String> OpenTextFiles(const std::vector<FolderItem>& files) {
  Array<String> unopened;
  for (const FolderItem& file : files)
    if (std::optional<String> name = Import(file)) unopened.Append(std::move(*name));
  return unopened;
}

void TellOfUnopened(const Array<String>& names) {
  if (names.Ubound() < 0) return;
  MessageDialog message;
  message.Message = "The following items couldn't be opened, or were empty:";
  message.Explanation = Join(names, EndOfLine);
  (void)message.ShowModal();
}

void ImportTextFiles() {
  OpenDialog dialog;
  dialog.PromptText = "Select Text (.txt) files to import as equations.";
  dialog.Filter = textFiles;
  TellOfUnopened(OpenTextFiles(dialog.ShowModal()));
}

}  // namespace sumlet
