// The ways in which the process can end other than by the menu: no display, a signal, or an exit inside a library.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace sumlet {

// Opens /dev/null as each standard stream that is closed, because the next file opened would otherwise take its number.
// Ignores SIGPIPE, so that writing to a closed pipe does not end the program. Call it before anything else.
void SurviveLostStreams();

// During its lifetime, a fatal message of the toolkit prints one plain sentence and ends the process with status 1,
// without a core dump. Keep it only while the application object is constructed, before there is anything to lose.
class NoDisplayEndsProgram {
 public:
  NoDisplayEndsProgram();
  NoDisplayEndsProgram(const NoDisplayEndsProgram&) = delete;
  NoDisplayEndsProgram& operator=(const NoDisplayEndsProgram&) = delete;
  ~NoDisplayEndsProgram();
};

// During its lifetime, SIGTERM, SIGINT and SIGHUP call `quit` on the event loop, also those that arrive before the loop
// runs. SIGHUP stays ignored in a program that was started so, as by nohup. Create one object of it at a time.
class QuitSignals {
 public:
  explicit QuitSignals(const std::function<void()>& quit);
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;
  ~QuitSignals();

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

// During its lifetime, runs `save` on the event thread when a library ends the process, then ends it with status 1. The
// toolkit does so when it loses the display: it calls exit from within the event loop, which neither returns nor
// unwinds, so that the objects of main still exist while the exit handlers run.
class LastSave {
 public:
  // `save` must not use the display or ask the user. The statics that it uses must be constructed before. Create one
  // object at a time.
  explicit LastSave(std::function<void()> save);
  LastSave(const LastSave&) = delete;
  LastSave& operator=(const LastSave&) = delete;
  ~LastSave();
};

// On Wayland, ends the process when it goes out of scope, before the toolkit is destroyed: the toolkit's plug-in
// sometimes waits for its own thread for ever. Everything must be saved by then.
class QuickEndOnWayland {
 public:
  // `status` is read at the end, and must outlive the object.
  explicit QuickEndOnWayland(const int& status) : status_(status) {}
  QuickEndOnWayland(const QuickEndOnWayland&) = delete;
  QuickEndOnWayland& operator=(const QuickEndOnWayland&) = delete;
  ~QuickEndOnWayland();

 private:
  const int& status_;
};

}  // namespace sumlet
