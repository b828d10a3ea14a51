// The toolkit ends the process by a call of abort() when it has no display, whatever the reason: no server told, one
// that does not answer, a plug-in that is missing. Asking for a display ahead of the toolkit would have to repeat how
// it finds one; its own last message ahead of the abort says the same for all reasons.
#include "shell/no_display.h"

#include <QString>
#include <cstdio>
#include <cstdlib>

namespace sumlet {
namespace {

QtMessageHandler otherMessages = nullptr;

void EndOnFatal(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type != QtFatalMsg) {
    otherMessages(type, context, message);
    return;
  }
  std::fputs("sumlet: there is no display to show a window on\n", stderr);
  // The message lists the plug-ins that are installed.
  if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && !message.contains(QLatin1String("wayland")))
    std::fputs("sumlet: Qt's plug-in for Wayland is not installed; on Debian it is in the package qt6-wayland\n",
               stderr);
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

NoDisplayEndsProgram::NoDisplayEndsProgram() { otherMessages = qInstallMessageHandler(EndOnFatal); }

NoDisplayEndsProgram::~NoDisplayEndsProgram() { qInstallMessageHandler(otherMessages); }

}  // namespace sumlet
