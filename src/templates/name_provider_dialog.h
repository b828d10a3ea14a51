// NameProviderDialog: asks for a name, on a sheet of a window. The window holds one as a member, sets Prompt and Text,
// attaches the handlers and calls ShowWithin, as often as it likes.
#pragma once

#include <QPointer>
#include <functional>

#include "framework/text/text.h"
#include "framework/ui/window.h"

namespace sumlet {

class winSave;

class NameProviderDialog {
 public:
  NameProviderDialog() = default;
  NameProviderDialog(const NameProviderDialog&) = delete;
  NameProviderDialog& operator=(const NameProviderDialog&) = delete;
  // Takes an open sheet away, without an event.
  virtual ~NameProviderDialog();

  // What stands above the field.
  String Prompt;
  // In: what stands in the field at first. Out: the name that was saved, without white space around it and not empty.
  String Text;

  // The user saved; Text holds the name, and the sheet still stands. Either handler may be empty.
  std::function<void(NameProviderDialog& sender)> Saved;
  // The user cancelled, or the sheet was closed in another way; Text is unchanged.
  std::function<void(NameProviderDialog& sender)> Canceled;

  // Shows the sheet and returns at once; exactly one of the events comes later. While the sheet of an earlier call
  // stands, that one comes forward instead.
  virtual void ShowWithin(Window& parent);

  // Raise the events. Called by the sheet.
  virtual void DoEventCancel();
  virtual void DoEventSaved();

 private:
  QPointer<winSave> sheet_;
};

}  // namespace sumlet
