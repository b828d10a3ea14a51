#include "framework/ui/file_dialogs.h"

#include <QChar>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <string_view>

#include "framework/ui/qt_text.h"
#include "framework/ui/window.h"

namespace sumlet {
namespace {

// Both dialogs open in the folder of the last choice, or in the home folder before the first.
QString& LastFolder() {
  static QString folder = QDir::homePath();
  return folder;
}

FolderItem ItemOf(const QString& path) {
  LastFolder() = QFileInfo(path).absolutePath();
  return FolderItem(QFileInfo(path).filesystemFilePath());
}

// Replaces characters that file names cannot contain. The name may be that of a template.
QString AsFileName(std::string_view name) {
  QString fileName = ToQString(name);
  for (QChar& c : fileName) {
    if (c == u'/' || c == u'\\' || c.category() == QChar::Other_Control) c = u'-';
  }
  return fileName;
}

std::vector<FolderItem> AskForFiles(const OpenDialog& request) {
  const QString filter = ToQString(request.Filter) + QStringLiteral(";;All files (*)");
  const QStringList paths = QFileDialog::getOpenFileNames(nullptr, ToQString(request.PromptText), LastFolder(), filter,
                                                          nullptr, QFileDialog::HideNameFilterDetails);
  std::vector<FolderItem> files;
  for (const QString& path : paths) files.push_back(ItemOf(path));
  return files;
}

std::optional<FolderItem> AskForPlace(const SaveAsDialog& request, Window& parent) {
  // The parent may be destroyed while the dialog is open, and the dialog with it.
  const QPointer<QFileDialog> dialog = new QFileDialog(&parent, QString(), LastFolder());
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->selectFile(AsFileName(request.SuggestedFileName));
  const bool chosen = dialog->exec() == QDialog::Accepted && dialog;
  const QString path = chosen ? dialog->selectedFiles().value(0) : QString();
  delete dialog;
  if (path.isEmpty()) return {};
  return ItemOf(path);
}

}  // namespace

Hook<std::vector<FolderItem>(const OpenDialog& dialog)> ShowOpenDialog(AskForFiles);
Hook<std::optional<FolderItem>(const SaveAsDialog& dialog, Window& parent)> ShowSaveAsDialog(AskForPlace);

std::vector<FolderItem> OpenDialog::ShowModal() const { return ShowOpenDialog(*this); }

std::optional<FolderItem> SaveAsDialog::ShowModalWithin(Window& parent) const {
  return ShowSaveAsDialog(*this, parent);
}

}  // namespace sumlet
