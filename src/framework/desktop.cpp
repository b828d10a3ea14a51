#include "framework/desktop.h"

namespace sumlet {
namespace {

String ownClipboard;

}  // namespace

Hook<void(std::string_view)> MsgBox;
Hook<DialogButton(const MessageDialog&)> ShowDialog([](const MessageDialog&) { return DialogButton::Cancel; });
Hook<void(std::string_view)> ShowURL;
Hook<String()> ClipboardText([] { return ownClipboard; });
Hook<void(std::string_view)> SetClipboardText([](std::string_view text) { ownClipboard = text; });

DialogButton MessageDialog::ShowModal() const { return ShowDialog(*this); }

}  // namespace sumlet
