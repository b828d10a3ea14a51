#include "framework/ui/incoming_files.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDropEvent>
#include <QEvent>
#include <QMetaObject>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace sumlet {
namespace {

// Decodes the path itself. A file name may contain any bytes, and QUrl::toLocalFile loses those that are not UTF-8.
FolderItem ItemOf(const QUrl& file) {
#if defined(Q_OS_WIN)
  return FolderItem(file.toLocalFile().toStdWString());
#else
  return FolderItem(QByteArray::fromPercentEncoding(file.path(QUrl::FullyEncoded).toLatin1()).toStdString());
#endif
}

class DropFilter final : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* /*window*/, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    auto& drop = static_cast<QDropEvent&>(*event);
    drop.setAccepted(!FilesIn(*drop.mimeData()).empty());
    drop.setDropAction(Qt::CopyAction);  // after a move, the other program would delete the files
    if (type == QEvent::Drop) OpenIncoming(*drop.mimeData());
    return true;
  }
};

}  // namespace

Hook<void(const std::vector<FolderItem>& files)> OpenFiles;

std::vector<FolderItem> FilesIn(const QMimeData& data) {
  std::vector<FolderItem> files;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) files.push_back(ItemOf(url));
  return files;
}

void OpenIncoming(const QMimeData& data) {
  const auto open = [files = FilesIn(data)] {
    if (!files.empty()) OpenFiles(files);
  };
  QMetaObject::invokeMethod(qApp, open, Qt::QueuedConnection);
}

void AcceptFiles(QWidget& window) {
  window.setAcceptDrops(true);
  window.installEventFilter(new DropFilter(&window));
}

}  // namespace sumlet
