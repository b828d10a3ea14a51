// MenuBar: the menus and commands of the program, shared by all windows.
//
// Each item has a name. Choosing the item runs the handler of that name: the front window's if it has one, otherwise
// the application's. An item without a handler does nothing.
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
  const char* shortcut = "";  // "Ctrl+Shift+N"; "; " separates several; Ctrl is Cmd on macOS
  bool autoEnable = true;     // if false, disabled unless the enabling pass enables it
};

class MenuBar final : public QObject {
 public:
  MenuBar();
  ~MenuBar() override;

  QMenu& AddMenu(const char* name, const char* text);
  // Appends an item to a menu. Choosing it calls Choose with its name.
  QAction& AddItem(QMenu& menu, const MenuItemDeclaration& declaration);
  // Adds a shortcut to an item without showing it in the menu. Works only in windows that are attached afterwards.
  void AddShortcut(const std::string& name, const char* shortcut);

  // Return a menu or an item by its name. Throw a Fault if there is none.
  [[nodiscard]] QMenu& Menu(const std::string& name) const;
  [[nodiscard]] QAction& Item(const std::string& name) const;
  [[nodiscard]] bool HasItem(const std::string& name) const { return itemsByName_.contains(name); }
  void Enable(const std::string& name) { Item(name).setEnabled(true); }

  // The application's handlers, and its part of the enabling pass. A handler returns whether it handled the command.
  void BindHandler(const std::string& name, std::function<bool()> handler) { handlers_[name] = std::move(handler); }
  std::function<void()> EnableMenuItems;

  // Adds the commands to a window: as a bar above the content, or as shortcuts only if the bar is not visible there.
  void AttachTo(Window& window);

  // Runs the enabling pass.
  void Update();

  // Runs the front window's handler of `name`, and the application's if that does not handle the command. Returns
  // whether one of them handled it.
  bool Choose(const std::string& name);

  // Installed on the application. Runs the enabling pass before Qt looks up a shortcut, and consumes some keys before
  // they reach the controls.
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  [[nodiscard]] bool Consumes(QObject* receiver, QKeyEvent& key) const;

  std::vector<std::unique_ptr<QMenu>> menus_;
  std::map<std::string, QMenu*> menusByName_;
  std::map<std::string, QAction*> itemsByName_;
  std::vector<QAction*> enabledOnDemand_;
  std::vector<QAction*> hiddenShortcuts_;
  std::map<std::string, std::function<bool()>> handlers_;
};

}  // namespace sumlet
