// The display may be lost because its server has crashed, a remote connection has broken or a session was ended in
// haste. No signal needs to come with it, and watching the connection beside the toolkit would be a race with it for
// who notices first.
//
// On Wayland the toolkit ends the process by _exit when the compositor goes, often on a thread of its own, so that no
// handler of exit runs. Its message ahead of that is the one chance to save. Only the event thread can read the
// windows: the other thread waits until that has saved, and no longer than its patience, in case the event thread waits
// for the compositor.
//
// Behind the save, exit would go on to destroy what the toolkit's threads are still working with. The process ends
// without that.
#include "shell/last_save.h"

#include <QCoreApplication>
#include <QThread>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <thread>
#include <utility>

namespace sumlet {
namespace {

std::function<void()>& Save() {
  static std::function<void()> save;
  return save;
}

constexpr std::chrono::seconds patience(5);

QtMessageHandler otherMessages = nullptr;

void SaveAndEnd() {
  const std::function<void()> save = std::exchange(Save(), nullptr);
  if (!save) return;
  try {
    save();
  } catch (const std::exception&) {
    // Nobody is there to be told.
  }
  std::_Exit(EXIT_FAILURE);
}

void SaveWithoutCompositor(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  otherMessages(type, context, message);
  if (!message.startsWith(QLatin1String("The Wayland connection "))) return;
  if (QThread::currentThread() == qApp->thread()) SaveAndEnd();
  QMetaObject::invokeMethod(qApp, SaveAndEnd, Qt::QueuedConnection);
  std::this_thread::sleep_for(patience);
}

}  // namespace

LastSave::LastSave(std::function<void()> save) {
  Save() = std::move(save);
  static const bool registered = std::atexit(SaveAndEnd) == 0;
  (void)registered;
  otherMessages = qInstallMessageHandler(SaveWithoutCompositor);
}

LastSave::~LastSave() {
  qInstallMessageHandler(otherMessages);
  Save() = nullptr;
}

}  // namespace sumlet
