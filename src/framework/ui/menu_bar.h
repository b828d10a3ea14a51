// MenuBar: the menus and commands of the program, shared by all windows.
//
// An item has a name. Choosing it runs the handler bound to that name: the front window's, or else the application's.
// Without a handler it does nothing.
//
// An enabling pass runs before a menu opens and before each shortcut. It disables the items without autoEnable, then
// the front window and the application enable those that they can handle. The Edit items depend on the control that has
// the focus.
#pragma once

#include <QAction>
#include <QMenu>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/ui/window.h"

namespace sumlet {

struct MenuItemDeclaration {
  const char* name;
  const char* text;           // "-" is a separator; "&" marks the mnemonic
  const char* shortcut = "";  // as in "Ctrl+Shift+N", further ones behind "; "; Ctrl is Cmd on macOS
  bool autoEnable = true;     // False: stays disabled unless the enabling pass enables it
};

class MenuBar final : public QObject {
 public:
  MenuBar();
  ~MenuBar() override;

  QMenu& AddMenu(const char* name, const char* text);
  // Appends an item to a menu. Choosing it asks the handlers of its name.
  QAction& AddItem(QMenu& menu, const MenuItemDeclaration& declaration);
  // A further shortcut of an item, which its menu does not show. Works in windows that are attached afterwards.
  void AddShortcut(const std::string& name, const char* shortcut);

  // A menu or an item by its name; a Fault when there is none.
  [[nodiscard]] QMenu& Menu(const std::string& name) const;
  [[nodiscard]] QAction& Item(const std::string& name) const;
  [[nodiscard]] bool HasItem(const std::string& name) const { return itemsByName_.contains(name); }
  void Enable(const std::string& name) { Item(name).setEnabled(true); }

  // The application's handlers and its part of the enabling pass.
  void BindHandler(const std::string& name, std::function<bool()> handler) { handlers_[name] = std::move(handler); }
  std::function<void()> EnableMenuItems;

  // Gives a window the commands: drawn as a bar on top of its content, or as shortcuts only.
  void AttachTo(Window& window);

  // The enabling pass.
  void Update();

  // Asks the handlers of `name`. True when one of them has handled it.
  bool Choose(const std::string& name);

  // Runs the enabling pass before each shortcut is looked up, and keeps a few keys from the controls; installed on the
  // application.
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  [[nodiscard]] bool Consumes(QObject* receiver, QKeyEvent& key) const;

  std::vector<std::unique_ptr<QMenu>> menus_;
  std::map<std::string, QMenu*> menusByName_;
  std::map<std::string, QAction*> itemsByName_;
  std::vector<QAction*> enabledOnDemand_;
  std::vector<QAction*> unseenShortcuts_;
  std::map<std::string, std::function<bool()>> handlers_;
};

}  // namespace sumlet
