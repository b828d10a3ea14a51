#include "framework/ui/desktop_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "framework/clipboard.h"
#include "framework/ui/qt_text.h"

namespace sumlet {

void InstallClipboard() {
  SetClipboardHandlers({[] { return QGuiApplication::clipboard()->text().toStdString(); },
                        [](std::string_view text) { QGuiApplication::clipboard()->setText(ToQString(text)); }});
}

}  // namespace sumlet
