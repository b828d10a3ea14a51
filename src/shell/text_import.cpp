#include "shell/text_import.h"

#include <QByteArray>
#include <QDir>
#include <QMimeDatabase>
#include <QString>
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <utility>

#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/text/encoding.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

// The dialog's filter. Users may also choose other files.
constexpr std::string_view textFiles =
    "*.asc *.ascii *.bas *.c *.class *.cp *.cpp *.h *.hp *.hpp *.i3 *.java *.m2 *.m3 *.mak *.text *.txt";

// In bytes. Far above any equation; a text area can still handle it.
constexpr std::size_t largestText = std::size_t{16} << 20;

bool IsText(std::string_view name, std::string_view content) {
  if (QDir::match(ToQString(textFiles), ToQString(name))) return true;
  constexpr std::size_t enough = 16384;  // bytes, to recognise the kind of a file
  const auto size = static_cast<qsizetype>(std::min(content.size(), enough));
  const QByteArray start = QByteArray::fromRawData(content.data(), size);
  return QMimeDatabase().mimeTypeForFileNameAndData(ToQString(name), start).inherits(QStringLiteral("text/plain"));
}

// Empty if a window was opened; otherwise the name of the file, with the reason if it is too large.
std::optional<String> Import(const FolderItem& file, FileKinds kinds) {
  const std::filesystem::path& path = file.Path();
  const String name = (path.has_filename() ? path.filename() : path).string();  // without one: "folder/"
  std::optional<String> content = file.ReadBinaryFile();
  if (content && content->size() > largestText) return name + " (larger than 16 MB)";
  if (content && kinds == FileKinds::Text && !IsText(name, *content)) return name;
  const String text = content ? Trim(DecodeText(*std::move(content))) : String();
  if (text.empty()) return name;
  (new winSumlet)->SetEquation(EquationName(name), text);
  return {};
}

}  // namespace

String EquationName(std::string_view fileName) { return Replace(fileName, ".txt", ""); }

Array<String> OpenTextFiles(const std::vector<FolderItem>& files, FileKinds kinds) {
  Array<String> unopened;
  for (const FolderItem& file : files)
    if (std::optional<String> name = Import(file, kinds)) unopened.Append(std::move(*name));
  return unopened;
}

void ReportUnopened(const Array<String>& names) {
  if (names.Ubound() < 0) return;
  MessageDialog message;
  message.Message = "The following items couldn't be opened, or were empty:";
  message.Explanation = Join(names, EndOfLine);
  (void)message.ShowModal();
}

void ImportTextFiles() {
  OpenDialog dialog;
  dialog.PromptText = "Select Text (.txt) files to import as equations.";
  dialog.Filter = "Text (" + String(textFiles) + ")";
  ReportUnopened(OpenTextFiles(dialog.ShowModal()));
}

}  // namespace sumlet
