// Messages that stop the program until the user has answered. Who shows them is decided at start: the window program
// asks its user interface, a test answers by itself.
#pragma once

#include <functional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// One alert with a text and a button. Without a handler nothing is shown.
void MsgBox(std::string_view text);

enum class DialogButton { Action, Cancel, Alternate };

// A question with up to three answers. An empty caption leaves the alternate button out; the cancel button has the
// desktop's own caption.
struct MessageDialog {
  String Message;
  String Explanation;  // below the message, smaller
  String ActionButton = "OK";
  bool CancelButton = false;
  String AlternateActionButton;

  // The button pressed; Cancel when the dialog is closed otherwise, or without a handler.
  [[nodiscard]] DialogButton ShowModal() const;
};

using MessageHandler = std::function<void(std::string_view text)>;
using DialogHandler = std::function<DialogButton(const MessageDialog& dialog)>;
// Each gives back the handler that was in place.
MessageHandler SetMessageHandler(MessageHandler handler);
DialogHandler SetDialogHandler(DialogHandler handler);

}  // namespace sumlet
