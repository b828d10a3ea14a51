// A signal handler may do next to nothing, so it writes a byte into a pipe, and the event loop reads the other end.
// A blocked signal with signalfd would do as well, but programs that this one starts would inherit the block.
#include "shell/quit_signals.h"

#include <QSocketNotifier>

#if defined(_WIN32)

namespace sumlet {
QuitSignals::QuitSignals(const std::function<void()>& /*quit*/) {}
QuitSignals::~QuitSignals() = default;
void SurviveLostStreams() {}
}  // namespace sumlet

#else

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace sumlet {
namespace {

constexpr int quitSignals[] = {SIGTERM, SIGINT, SIGHUP};

int pipeEnds[2] = {-1, -1};  // reading, writing

void Note(int /*signal*/) {
  const int error = errno;
  [[maybe_unused]] const ssize_t written = write(pipeEnds[1], "q", 1);  // a full pipe has told enough
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
  if (!OpenPipe()) return;  // the signals then end the program as they do any other
  notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [quit] {
    EmptyPipe();
    quit();
  });
  for (const int signal : quitSignals) Handle(signal, Note);
}

// The program is ending by itself: a session that ends sends several signals, and none may spoil the status.
QuitSignals::~QuitSignals() {
  if (!notifier_) return;
  for (const int signal : quitSignals) Handle(signal, SIG_IGN);
  notifier_.reset();
  for (const int end : pipeEnds) close(end);
}

// The lowest free number is the one that is closed. Programs that this one starts get the default for SIGPIPE again.
void SurviveLostStreams() {
  int stream = 0;
  do stream = open("/dev/null", O_RDWR);
  while (stream >= 0 && stream <= STDERR_FILENO);
  if (stream >= 0) close(stream);
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace sumlet

#endif
