// Modal messages and questions. Handlers show them: the program's user interface, or the answers of a test.
#pragma once

#include <functional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Shows an alert with a text and a button. Does nothing without a handler.
void MsgBox(std::string_view text);

enum class DialogButton { Action, Cancel, Alternate };

// A question with up to three answers. There is no alternate button if its caption is empty. The cancel button has the
// desktop's caption.
struct MessageDialog {
  String Message;
  String Explanation;  // below the message, smaller
  String ActionButton = "OK";
  bool CancelButton = false;
  String AlternateActionButton;

  // Returns the button pressed; Cancel if the dialog is closed otherwise, or without a handler.
  [[nodiscard]] DialogButton ShowModal() const;
};

using MessageHandler = std::function<void(std::string_view text)>;
using DialogHandler = std::function<DialogButton(const MessageDialog& dialog)>;
// Each returns the previous handler.
MessageHandler SetMessageHandler(MessageHandler handler);
DialogHandler SetDialogHandler(DialogHandler handler);

}  // namespace sumlet
