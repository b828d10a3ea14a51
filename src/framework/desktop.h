// Messages, questions, web pages and the clipboard, for code that knows no toolkit. The user interface implements these
// hooks with the desktop's services, and a test with its own answers.
#pragma once

#include <string_view>

#include "framework/hook.h"
#include "framework/text/text.h"

namespace sumlet {

// Shows an alert with a text and a button. Does nothing without a handler.
extern Hook<void(std::string_view text)> MsgBox;

enum class DialogButton { Action, Cancel, Alternate };

// A question with up to three answers. There is no alternate button if its caption is empty. The cancel button has the
// desktop's caption.
struct MessageDialog {
  String Message;
  String Explanation;  // below the message, smaller
  String ActionButton = "OK";
  bool CancelButton = false;
  String AlternateActionButton;

  // Returns the button pressed. Returns Cancel if the user closes the dialog without a button, or if ShowDialog has no
  // handler.
  [[nodiscard]] DialogButton ShowModal() const;
};
extern Hook<DialogButton(const MessageDialog& dialog)> ShowDialog;

// Opens `address`, a complete and percent-encoded URL, in the user's browser. Returns immediately and does not report
// failure. Does nothing without a handler.
extern Hook<void(std::string_view address)> ShowURL;

// Read and replace the text on the clipboard. Without handlers they use a variable, which is empty at start.
extern Hook<String()> ClipboardText;
extern Hook<void(std::string_view text)> SetClipboardText;

}  // namespace sumlet
