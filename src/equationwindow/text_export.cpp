// The equation as a text file: the text as it stands, in UTF-8, and nothing else.
#include <QFileInfo>
#include <QPointer>
#include <QSaveFile>

#include "equationwindow/win_sumlet.h"
#include "framework/message.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

// Empty when the text has been written, else the reason. A file that stood there is replaced whole or not at all.
QString WriteText(const QString& path, const String& text) {
  QSaveFile file(path);
  file.setDirectWriteFallback(true);
  const auto size = static_cast<qint64>(text.size());
  const bool written = file.open(QIODevice::WriteOnly) && file.write(text.data(), size) == size && file.commit();
  return written ? QString() : file.errorString();
}

}  // namespace

bool winSumlet::_FileExport_Action() {
  const QPointer<winSumlet> self = this;
  SaveAsDialog dialog;
  dialog.SuggestedFileName = FromTemplate.empty() ? "Untitled Equation.txt" : FromTemplate + ".txt";
  const std::optional<FolderItem> file = dialog.ShowModalWithin(*this);
  if (!file || !self) return true;
  const QString path = QString::fromStdString(file->Path().string());
  const QString problem = WriteText(path, textInput().Text());
  if (!problem.isEmpty()) {
    MsgBox("The equation could not be exported to \"" + FromQString(QFileInfo(path).fileName()) +
           "\": " + FromQString(problem));
  }
  return true;
}

}  // namespace sumlet
