#include "framework/message.h"

#include <utility>

namespace sumlet {
namespace {

MessageHandler& CurrentMessageHandler() {
  static MessageHandler handler;
  return handler;
}

DialogHandler& CurrentDialogHandler() {
  static DialogHandler handler;
  return handler;
}

}  // namespace

void MsgBox(std::string_view text) {
  if (const MessageHandler& handler = CurrentMessageHandler()) handler(text);
}

DialogButton MessageDialog::ShowModal() const {
  const DialogHandler& handler = CurrentDialogHandler();
  return handler ? handler(*this) : DialogButton::Cancel;
}

MessageHandler SetMessageHandler(MessageHandler handler) {
  return std::exchange(CurrentMessageHandler(), std::move(handler));
}

DialogHandler SetDialogHandler(DialogHandler handler) {
  return std::exchange(CurrentDialogHandler(), std::move(handler));
}

}  // namespace sumlet
