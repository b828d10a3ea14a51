#include "templates/name_provider_dialog.h"

#include "framework/ui/qt_text.h"
#include "templates/win_save.h"

namespace sumlet {

NameProviderDialog::~NameProviderDialog() {
  if (!sheet_) return;
  sheet_->ref = nullptr;
  sheet_->Close();
}

void NameProviderDialog::ShowWithin(Window& parent) {
  if (sheet_ && sheet_->isVisible()) {
    sheet_->Show();
    return;
  }
  sheet_ = new winSave;
  sheet_->SetPrompt(Prompt);
  sheet_->textName().setText(ToQString(Text));
  sheet_->textName().selectAll();
  sheet_->ref = this;
  sheet_->ShowWithin(parent);
}

// A handler may show a question. If the program quits meanwhile, the handler outlives this object.
void NameProviderDialog::DoEventCancel() {
  const auto handler = Canceled;
  if (handler) handler(*this);
}

void NameProviderDialog::DoEventSaved() {
  const auto handler = Saved;
  if (handler) handler(*this);
}

}  // namespace sumlet
