// NameProviderDialog: asks for a name on a sheet of a window. The window has one as a member, sets Prompt, Text and the
// handlers, and calls ShowWithin any number of times.
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
  // Closes an open sheet without raising an event.
  virtual ~NameProviderDialog();

  // The text above the field.
  String Prompt;
  // In: the initial text of the field. Out: the saved name, trimmed and not empty.
  String Text;

  // Raised when the user saves, while the sheet is still open; Text has the name. Either handler may be empty.
  std::function<void(NameProviderDialog& sender)> Saved;
  // Raised when the sheet closes without saving; Text is unchanged.
  std::function<void(NameProviderDialog& sender)> Canceled;

  // Shows the sheet and returns immediately; raises exactly one of the events later. If the sheet is already open, only
  // raises it.
  virtual void ShowWithin(Window& parent);

  // Raise the events. Called by the sheet.
  virtual void DoEventCancel();
  virtual void DoEventSaved();

 private:
  QPointer<winSave> sheet_;
};

}  // namespace sumlet
