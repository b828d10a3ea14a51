// Application: the toolkit's application with the boundary of an event, and with quitting left to the program.
#pragma once

#include <QApplication>
#include <functional>

namespace sumlet {

class Application final : public QApplication {
 public:
  // `session` is the name under which a session manager starts the program again, or nullptr. The program registers
  // with the session manager under that name. The toolkit's own options are not offered.
  explicit Application(const char* session = nullptr);

  // Takes the place of the toolkit closing the windows by itself when the desktop or the session manager says to quit.
  std::function<void()> QuitRequested;
  // The session may be about to end; it may also go on. Runs while all windows stand, and must not ask anything.
  std::function<void()> SessionEnding;

  // Runs `action` as an event of its own. A Fault, or too little memory, ends the action, and one alert says so soon
  // after; further ones while that alert stands are not told. Nothing else is caught. For what the toolkit does not
  // deliver as an event.
  void RunEvent(const std::function<void()>& action);

  bool notify(QObject* receiver, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;

 private:
  void Tell(const char* cause);

  bool telling_ = false;
};

}  // namespace sumlet
