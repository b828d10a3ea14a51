// QuitSignals: the ways in which the system asks a program to end.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace sumlet {

// While it lives, SIGTERM, SIGINT and SIGHUP call `quit` on the event loop, whatever the program is doing when they
// arrive; one that comes before the event loop runs is not lost. SIGHUP stays ignored in a program that was started so,
// as by nohup. There is one at a time.
class QuitSignals {
 public:
  explicit QuitSignals(const std::function<void()>& quit);
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;
  ~QuitSignals();

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

// Opens /dev/null in the place of a standard stream that is closed, which the next file opened would replace, and
// ignores SIGPIPE, so that a message to nobody does not end the program. Call it before anything else.
void SurviveLostStreams();

}  // namespace sumlet
