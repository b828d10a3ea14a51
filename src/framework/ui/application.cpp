// notify() receives every event of the toolkit, including timers and sockets, and nested events have nested calls. So
// an exception ends only the innermost event and never unwinds the toolkit's event loop.
//
// The alert is posted, not shown immediately: the event may be in the middle of painting or closing, and the alert
// would cause repainting, which would fail again.
#include "framework/ui/application.h"

#include <QAccessibleWidget>
#include <QChar>
#include <QEvent>
#include <QMessageBox>
#include <QMetaObject>
#include <QScopeGuard>
#include <QSessionManager>
#include <QString>
#include <new>

#include "framework/desktop.h"
#include "framework/fault.h"
#include "framework/text/text.h"
#include "framework/ui/window.h"

namespace sumlet {
namespace {

constexpr char outOfMemory[] = "too little memory";
char programName[] = "sumlet";
char sessionOption[] = "-session";

// The toolkit's arguments. It keeps references to both.
char* programArguments[] = {programName, nullptr, nullptr, nullptr};
int argumentCount = 1;

int& SetArguments(const char* session) {
  if (session) {
    programArguments[argumentCount++] = sessionOption;
    programArguments[argumentCount++] = const_cast<char*>(session);  // the toolkit only reads it
  }
  return argumentCount;
}

// Screen readers look for frames and dialogs. The toolkit reports neither for a plain widget or an alert.
class AccessibleWindow final : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;
  [[nodiscard]] QAccessible::Role role() const override {
    return widget()->windowType() == Qt::Window ? QAccessible::Window : QAccessible::Dialog;
  }
};

QAccessibleInterface* NewAccessibleWindow(const QString& /*className*/, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  const bool isOurs = dynamic_cast<Window*>(widget) || qobject_cast<QMessageBox*>(widget);
  return isOurs ? new AccessibleWindow(widget) : nullptr;
}

}  // namespace

Application::Application(const char* session) : QApplication(SetArguments(session), programArguments) {
  setQuitOnLastWindowClosed(false);
  QAccessible::installFactory(NewAccessibleWindow);
  // The session manager's library calls this, not an event.
  connect(
      this, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager&) {
        if (SessionEnding) RunEvent(SessionEnding);
      },
      Qt::DirectConnection);
  // The toolkit's own command has a name without a folder, and sometimes an option that the program does not know.
  connect(
      this, &QGuiApplication::saveStateRequest, this,
      [](QSessionManager& manager) {
        const QString name = manager.sessionId() + QLatin1Char('_') + manager.sessionKey();
        manager.setRestartCommand({applicationFilePath(), QLatin1String(sessionOption), name});
      },
      Qt::DirectConnection);
}

void Application::RunEvent(const std::function<void()>& action) {
  try {
    action();
  } catch (const Fault& fault) {
    Report(fault.what());
  } catch (const std::bad_alloc&) {
    Report(outOfMemory);
  }
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const Fault& fault) {
    Report(fault.what());
  } catch (const std::bad_alloc&) {
    Report(outOfMemory);
  }
  return true;
}

bool Application::event(QEvent* event) {
  if (event->type() != QEvent::Quit || !QuitRequested) return QApplication::event(event);
  event->accept();
  QuitRequested();
  return true;
}

void Application::Report(const char* cause) {
  if (isReporting_) return;
  isReporting_ = true;
  const auto showAlert = [this, text = "This could not be done because of " + String(cause) + "."] {
    const auto end = qScopeGuard([this] { isReporting_ = false; });
    MsgBox(text);
  };
  QMetaObject::invokeMethod(this, showAlert, Qt::QueuedConnection);
}

}  // namespace sumlet
