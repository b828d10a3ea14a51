// winSave: the sheet on which a NameProviderDialog asks for a name.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <string_view>

#include "framework/ui/push_button.h"
#include "framework/ui/window.h"
#include "templates/name_provider_dialog.h"

namespace sumlet {

class winSave final : public Window {
 public:
  // Creates the sheet; Window::ShowWithin shows it. Deletes itself when closed.
  winSave();

  // Receiver of the outcome; not owned; may be null.
  NameProviderDialog* ref = nullptr;

  // Sets the text above the field, which is also the field's accessible name.
  void SetPrompt(std::string_view prompt);

  [[nodiscard]] QLabel& lblPrompt() const { return *lblPrompt_; }
  [[nodiscard]] QLineEdit& textName() const { return *textName_; }
  [[nodiscard]] PushButton& btnCancel() const { return *btnCancel_; }
  [[nodiscard]] PushButton& btnSave() const { return *btnSave_; }

 protected:
  void Layout() override;
  void CreateControls() override;
  bool Event_CancelClose(bool appQuitting) override;

 private:
  void btnSave_Action();
  void btnCancel_Action();

  QLabel* lblPrompt_ = nullptr;
  QLineEdit* textName_ = nullptr;
  PushButton* btnCancel_ = nullptr;
  PushButton* btnSave_ = nullptr;
  bool saved_ = false;
};

}  // namespace sumlet
