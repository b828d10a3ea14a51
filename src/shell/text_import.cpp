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

// Empty when a window has been opened, else what to tell about the file.
String Import(const FolderItem& file) {
  String name = file.Path().filename().string();
  const std::optional<String> content = file.ReadBinaryFile();
  if (content && content->size() > largestText) return name + " (larger than 16 MB)";
  const String text = content ? Trim(DecodeText(*content)) : String();
  if (text.empty()) return name;
  (new winSumlet)->SetEquation(EquationName(name), text);
  return {};
}

}  // namespace

String EquationName(std::string_view fileName) { return Replace(fileName, ".txt", ""); }

void ImportTextFiles() {
  OpenDialog dialog;
  dialog.PromptText = "Select Text (.txt) files to import as equations.";
  dialog.Filter = textFiles;
  Array<String> failed;
  for (const FolderItem& file : dialog.ShowModal()) {
    if (String problem = Import(file); !problem.empty()) failed.Append(std::move(problem));
  }
  if (failed.Ubound() < 0) return;
  MessageDialog message;
  message.Message = "The following items couldn't be opened, or were empty:";
  message.Explanation = Join(failed, EndOfLine);
  (void)message.ShowModal();
}

}  // namespace sumlet
