#include "shell/process_end.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMetaObject>
#include <QSocketNotifier>
#include <QString>
#include <QThread>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <thread>
#include <utility>

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#endif

namespace sumlet {
namespace {

// Qt's own message handler. One variable is enough, because NoDisplayEndsProgram and LastSave never exist at the same
// time.
QtMessageHandler defaultMessageHandler = nullptr;

// Qt calls abort() when it has no display, whatever the reason: no server named, one that does not answer, a
// missing plug-in. Checking for a display first would have to repeat how Qt finds one.
void EndOnFatal(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type != QtFatalMsg) {
    defaultMessageHandler(type, context, message);
    return;
  }
  std::fputs("sumlet: there is no display to show a window on\n", stderr);
  // The message lists the plug-ins that are installed.
  if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && !message.contains(QLatin1String("wayland")))
    std::fputs("sumlet: Qt's plug-in for Wayland is not installed; on Debian it is in the package qt6-wayland\n",
               stderr);
  std::_Exit(EXIT_FAILURE);
}

constexpr std::chrono::seconds saveTimeout(5);

std::function<void()>& SaveCallback() {
  static std::function<void()> save;
  return save;
}

// exit would go on to destroy what Qt's threads still use; _Exit does not.
void SaveAndEnd() {
  const std::function<void()> save = std::exchange(SaveCallback(), nullptr);
  if (!save) return;
  try {
    save();
  } catch (const std::exception&) {
    // There is no display on which to report it.
  }
  std::_Exit(EXIT_FAILURE);
}

// When the Wayland compositor ends, Qt logs "The Wayland connection ..." and calls _exit, often on a thread of
// its own. Exit handlers do not run then. Only the event thread can read the windows, so that thread has to save. The
// other thread waits for it, but only for a few seconds, because the compositor may have blocked the event thread.
void SaveWithoutCompositor(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  defaultMessageHandler(type, context, message);
  if (!message.startsWith(QLatin1String("The Wayland connection "))) return;
  if (QThread::currentThread() == qApp->thread()) SaveAndEnd();
  QMetaObject::invokeMethod(qApp, SaveAndEnd, Qt::QueuedConnection);
  std::this_thread::sleep_for(saveTimeout);
}

}  // namespace

NoDisplayEndsProgram::NoDisplayEndsProgram() { defaultMessageHandler = qInstallMessageHandler(EndOnFatal); }

NoDisplayEndsProgram::~NoDisplayEndsProgram() { qInstallMessageHandler(defaultMessageHandler); }

// Registers an exit handler, because Qt calls exit when it loses the X display. No signal reports a crashed
// server or a broken connection, and watching the connection beside Qt would race with it.
LastSave::LastSave(std::function<void()> save) {
  SaveCallback() = std::move(save);
  static const bool registered = std::atexit(SaveAndEnd) == 0;
  (void)registered;
  defaultMessageHandler = qInstallMessageHandler(SaveWithoutCompositor);
}

LastSave::~LastSave() {
  qInstallMessageHandler(defaultMessageHandler);
  SaveCallback() = nullptr;
}

QuickEndOnWayland::~QuickEndOnWayland() {
  if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) std::_Exit(status_);
}

#if defined(_WIN32)

QuitSignals::QuitSignals(const std::function<void()>& /*quit*/) {}
QuitSignals::~QuitSignals() = default;
void SurviveLostStreams() {}

#else

namespace {

constexpr int quitSignals[] = {SIGTERM, SIGINT, SIGHUP};

int pipeEnds[2] = {-1, -1};  // reading, writing

// A signal handler may do almost nothing, so it writes a byte into a pipe, which the event loop reads. Blocked signals
// with signalfd would need no handler, but child processes would inherit the block.
void WriteToPipe(int /*signal*/) {
  const int error = errno;
  [[maybe_unused]] const ssize_t written = write(pipeEnds[1], "q", 1);  // a full pipe already wakes the event loop
  errno = error;
}

bool OpenPipe() {
  if (pipe(pipeEnds) != 0) return false;
  for (const int end : pipeEnds) {
    fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(end, F_SETFL, O_NONBLOCK);
  }
  return true;
}

void EmptyPipe() {
  char bytes[16];
  while (read(pipeEnds[0], bytes, sizeof bytes) > 0) {
  }
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  sigaction(signal, nullptr, &action);
  if (signal == SIGHUP && action.sa_handler == SIG_IGN) return;
  action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

QuitSignals::QuitSignals(const std::function<void()>& quit) {
  if (!OpenPipe()) return;  // the signals keep their default action
  notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [quit] {
    EmptyPipe();
    quit();
  });
  for (const int signal : quitSignals) Handle(signal, WriteToPipe);
}

// Ignores further signals: a session that ends sends several, and they would change the exit status.
QuitSignals::~QuitSignals() {
  if (!notifier_) return;
  for (const int signal : quitSignals) Handle(signal, SIG_IGN);
  notifier_.reset();
  for (const int end : pipeEnds) close(end);
}

// Each open returns the lowest free number, so this opens every closed standard stream. RunProgram
// (framework/file/program.h) restores SIGPIPE for child processes.
void SurviveLostStreams() {
  int stream = 0;
  do stream = open("/dev/null", O_RDWR);
  while (stream >= 0 && stream <= STDERR_FILENO);
  if (stream >= 0) close(stream);
  std::signal(SIGPIPE, SIG_IGN);
}

#endif

}  // namespace sumlet
