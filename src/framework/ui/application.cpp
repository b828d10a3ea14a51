// Every event of the toolkit, timers and sockets included, comes through notify, and nested ones each through their
// own: a fault leaves the innermost event only, and no frame of the event loop below is ever unwound.
//
// The alert is not shown in place. The event may be in the middle of painting or closing, and a fault of a paint event
// would come again with each repainting that its own alert brings about.
#include "framework/ui/application.h"

#include <QMetaObject>
#include <QScopeGuard>
#include <QSessionManager>

#include "framework/fault.h"
#include "framework/message.h"
#include "framework/text/text.h"

namespace sumlet {
namespace {

char programName[] = "sumlet";
char* programArguments[] = {programName, nullptr};
int argumentCount = 1;  // the toolkit keeps a reference

}  // namespace

Application::Application() : QApplication(argumentCount, programArguments) {
  setQuitOnLastWindowClosed(false);
  // The session manager's message comes through its own library, not as an event.
  connect(
      this, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager&) {
        if (SessionEnding) RunEvent(SessionEnding);
      },
      Qt::DirectConnection);
}

void Application::RunEvent(const std::function<void()>& action) {
  try {
    action();
  } catch (const Fault& fault) {
    Tell(fault.what());
  }
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const Fault& fault) {
    Tell(fault.what());
    return true;
  }
}

bool Application::event(QEvent* event) {
  if (event->type() != QEvent::Quit || !QuitRequested) return QApplication::event(event);
  event->accept();
  QuitRequested();
  return true;
}

void Application::Tell(const char* cause) {
  if (telling_) return;
  telling_ = true;
  const auto tell = [this, text = "This could not be done because of " + String(cause) + "."] {
    const auto told = qScopeGuard([this] { telling_ = false; });
    MsgBox(text);
  };
  QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

}  // namespace sumlet
