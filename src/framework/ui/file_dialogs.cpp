#include "framework/ui/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <utility>

#include "framework/ui/qt_text.h"
#include "framework/ui/window.h"

namespace sumlet {
namespace {

FileDialogHandlers& Handlers() {
  static FileDialogHandlers handlers;
  return handlers;
}

// Both dialogs begin in the folder of the last choice, the user's home at first.
QString& LastFolder() {
  static QString folder = QDir::homePath();
  return folder;
}

FolderItem ItemOf(const QString& path) {
  LastFolder() = QFileInfo(path).absolutePath();
  return FolderItem(QFileInfo(path).filesystemFilePath());
}

// A name may come from a template and hold what no file name can.
QString AsFileName(std::string_view name) {
  QString fileName = ToQString(name);
  for (QChar& c : fileName) {
    if (c == u'/' || c == u'\\' || c.category() == QChar::Other_Control) c = u'-';
  }
  return fileName;
}

}  // namespace

std::vector<FolderItem> OpenDialog::ShowModal() const {
  if (Handlers().open) return Handlers().open(*this);
  const QString filter = ToQString(Filter) + QStringLiteral(";;All files (*)");
  const QStringList paths = QFileDialog::getOpenFileNames(nullptr, ToQString(PromptText), LastFolder(), filter, nullptr,
                                                          QFileDialog::HideNameFilterDetails);
  std::vector<FolderItem> files;
  for (const QString& path : paths) files.push_back(ItemOf(path));
  return files;
}

std::optional<FolderItem> SaveAsDialog::ShowModalWithin(Window& parent) const {
  if (Handlers().saveAs) return Handlers().saveAs(*this, parent);
  // The parent, and with it the dialog, may go while the dialog stands.
  const QPointer<QFileDialog> dialog = new QFileDialog(&parent, QString(), LastFolder());
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->selectFile(AsFileName(SuggestedFileName));
  const bool chosen = dialog->exec() == QDialog::Accepted && dialog;
  const QString path = chosen ? dialog->selectedFiles().value(0) : QString();
  delete dialog;
  if (path.isEmpty()) return {};
  return ItemOf(path);
}

void SetFileDialogs(FileDialogHandlers handlers) { Handlers() = std::move(handlers); }

}  // namespace sumlet
