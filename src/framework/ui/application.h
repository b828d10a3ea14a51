// Application: the toolkit's application, which catches faults at the boundary of each event and leaves quitting to the
// program.
#pragma once

#include <QApplication>
#include <functional>

namespace sumlet {

class Application final : public QApplication {
 public:
  // Registers with the session manager under the name `session`, under which the session manager restarts the program;
  // nullptr for a normal start. The toolkit's own options are not available.
  explicit Application(const char* session = nullptr);

  // Runs when the desktop or the session manager requests to quit, instead of the toolkit closing all windows.
  std::function<void()> QuitRequested;
  // Runs when the session may be about to end, while all windows are open. Must not prompt.
  std::function<void()> SessionEnding;

  // Runs `action` like an event. Catches Fault and std::bad_alloc and reports them by an alert from the event loop, but
  // not while an earlier such alert is open. Other exceptions pass. For calls that do not come from an event.
  void RunEvent(const std::function<void()>& action);

  bool notify(QObject* receiver, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;

 private:
  void Report(const char* cause);

  bool isReporting_ = false;
};

}  // namespace sumlet
