// winTemplates: the template chooser, which opens a new equation, empty or from a template. It also renames and deletes
// templates. Undo restores templates deleted since the chooser opened.
//
// The list shows templates added or replaced elsewhere immediately.
//
// There is at most one chooser. Choosing a row closes it.
#pragma once

#include <QImage>
#include <QString>
#include <vector>

#include "framework/hook.h"
#include "framework/text/text.h"
#include "framework/ui/base_window.h"
#include "framework/ui/listbox.h"
#include "framework/ui/placement.h"
#include "framework/ui/push_button.h"
#include "framework/ui/timer.h"
#include "persistence/my_window_manager.h"
#include "templates/name_provider_dialog.h"
#include "templates/templates_manager.h"

namespace sumlet {

class winTemplates final : public BaseWindow, public MyWindowManager::StoredWindow {
 public:
  // The open chooser, or else a new one. It deletes itself when closed.
  static winTemplates& Instance();

  struct Template {
    String Name;
    String Text;  // UTF-8, lines ended by EndOfLine
  };
  // Opens the chosen equation; nullptr for an empty one. Called while the chooser is hidden but not yet closed.
  static Hook<void(const Template* chosen)> OpenEquation;

  // Whether the buttons for renaming and deleting are visible.
  bool bEditMode = false;

  [[nodiscard]] Listbox& list() const { return *list_; }
  [[nodiscard]] PushButton& btnOK() const { return *btnOK_; }
  [[nodiscard]] PushButton& btnCancel() const { return *btnCancel_; }
  [[nodiscard]] PushButton& btnEdit() const { return *btnEdit_; }
  [[nodiscard]] PushButton& btnRename() const { return *btnRename_; }
  [[nodiscard]] PushButton& btnDelete() const { return *btnDelete_; }

  // Reloads the list from TemplatesManager and selects its first row, "New Equation...".
  void LoadList();
  // Updates the buttons according to bEditMode and the selection.
  void SettupEditMode();
  // Opens the selected row and closes the chooser.
  void OpenSelection();
  // Positions the list, one pixel outside the window at the left, top and right.
  void SetupControls();

  void StoreRecord(KeyList& record) const override;

 protected:
  void Layout() override;
  void CreateControls() override;
  void AddMenuHandlers() override;
  void Event_Open() override;
  void Event_EnableMenuItems(MenuBar& menuBar) override;
  void Event_Activate() override;
  bool Event_CancelClose(bool appQuitting) override;
  void Event_MouseEnter() override;

  // The shade of the selected row: one pixel wide, as high as the first selected cell. Null until then.
  QImage pOverlay;

 private:
  struct DeletedTemplate {
    Int32 index;  // 0-based, in TemplatesManager
    Template content;
  };

  winTemplates();

  PushButton* CreateButton(const QString& caption, const QRect& bounds, Locks locks, void (winTemplates::*action)());
  void CreateList();
  void UpdateListFromTemplates();
  bool UndoDelete();
  void list_Change();
  bool list_CellBackgroundPaint(CellGraphics& g, Int32 row, Int32 column);
  bool list_CellTextPaint(CellGraphics& g, Int32 row, Int32 column);
  void tmrFocus_Action();
  void btnCancel_Action();
  void btnEdit_Action();
  void btnRename_Action();
  void btnDelete_Action();
  void RenameDialog_Saved(const NameProviderDialog& sender);

  PushButton* btnOK_ = nullptr;
  PushButton* btnCancel_ = nullptr;
  Listbox* list_ = nullptr;
  Timer tmrFocus_;
  PushButton* btnEdit_ = nullptr;
  PushButton* btnRename_ = nullptr;
  PushButton* btnDelete_ = nullptr;
  NameProviderDialog RenameDialog_;
  std::vector<DeletedTemplate> deleted_;  // most recent last
  TemplatesManager::Subscription storeChanges_;
};

}  // namespace sumlet
