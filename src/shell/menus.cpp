#include "shell/menus.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QString>
#include <cstddef>
#include <utility>
#include <vector>

#include "equationwindow/win_sumlet.h"
#include "framework/text/text.h"
#include "framework/ui/edit_items.h"
#include "framework/ui/qt_text.h"
#include "framework/ui/window.h"

namespace sumlet {
namespace {

constexpr MenuItemDeclaration fileItems[] = {
    {"FileNewWindow", "New", "Ctrl+N"},
    {"FileNew", "New from Template Chooser...", "Ctrl+Shift+N"},
    {"FileSaveAsTemplate", "Save As Template...", "", false},
    {"UntitledSeparator1", "-"},
    {"FileExport", "Export to Text...", "Ctrl+Shift+S"},
    {"FileImport", "Import from Text...", "Ctrl+O"},
    {"UntitledSeparator2", "-"},
    {"FileCLose", "Close Window", "Ctrl+W", false},
    {"UntitledSeparator", "-"},
    {"FileQuit", "&Quit", "Ctrl+Q"},
};

constexpr MenuItemDeclaration editItems[] = {
    {"EditUndo", "&Undo", "Ctrl+Z"},
    {"UntitledMenu1", "-"},
    {"EditCut", "Cu&t", "Ctrl+X"},
    {"EditCopy", "&Copy", "Ctrl+C"},
    {"EditPaste", "&Paste", "Ctrl+V"},
    {"EditClear", "&Delete"},
    {"UntitledMenu0", "-"},
    {"EditSelectAll", "Select &All", "Ctrl+A"},
    {"UntitledSeparator7", "-"},
    {"EditRedo", "&Redo", "Ctrl+Shift+Z; Ctrl+Y"},
    {"EditCopyResult", "Copy R&esult", "Ctrl+Shift+C", false},
    {"EditGoToError", "&Go to Error", "F8", false},
    {"UntitledSeparator8", "-"},
    {"EditLargerText", "&Larger Text", "Ctrl++; Ctrl+=", false},
    {"EditSmallerText", "&Smaller Text", "Ctrl+-", false},
    {"EditNormalText", "&Normal Text Size", "Ctrl+0", false},
    {"UntitledSeparator10", "-"},
    {"EditShowLineValues", "Show Line &Values", "Ctrl+L"},
    {"EditCopyLineValue", "Copy L&ine Value", "Ctrl+Alt+C", false},
    {"EditCopyWithValues", "Copy &with Values", "Ctrl+Shift+Alt+C", false},
};

constexpr MenuItemDeclaration windowItems[] = {
    {"WindowMinimize", "Minimize", "Ctrl+M", false},
    {"WindowBringAlltoFront", "Bring All to Front", "", false},
    {"UntitledSeparator4", "-"},
};

constexpr MenuItemDeclaration helpItems[] = {
    {"HelpSumletHelp", "Sumlet Help"},
    {"HelpLanguage", "Language Reference"},  // the desktop opens the file
    {"AppleAbout", "About Sumlet"},
    {"UntitledSeparator5", "-"},
    {"ApplePreferences", "Preferences", "Ctrl+,"},
};

constexpr std::pair<const char*, EditCommand> editCommands[] = {
    {"EditUndo", EditCommand::Undo},   {"EditCut", EditCommand::Cut},     {"EditCopy", EditCommand::Copy},
    {"EditPaste", EditCommand::Paste}, {"EditClear", EditCommand::Clear}, {"EditSelectAll", EditCommand::SelectAll},
    {"EditRedo", EditCommand::Redo},
};

template <std::size_t count>
void Append(MenuBar& menuBar, const char* name, const char* text, const MenuItemDeclaration (&items)[count]) {
  QMenu& menu = menuBar.AddMenu(name, text);
  for (const MenuItemDeclaration& item : items) menuBar.AddItem(menu, item);
}

// The control that the Edit commands act on: the one with the focus, or the one that had it before a menu took the
// keyboard.
QPointer<QWidget> editTarget;

void FollowFocus() {
  QObject::connect(qApp, &QApplication::focusChanged, qApp, [](QWidget*, QWidget* now) {
    const bool isMenu = qobject_cast<QMenuBar*>(now) != nullptr || qobject_cast<QMenu*>(now) != nullptr;
    if (now != nullptr && !isMenu) editTarget = now;
  });
}

// Returns nullptr if the target is not in the front window. That window may have no control that takes the focus.
QWidget* Target() {
  const bool isInFront = editTarget && WindowCount() > 0 && editTarget->window() == &WindowAt(0);
  return isInFront ? editTarget.data() : nullptr;
}

void BindEditItems(MenuBar& menuBar) {
  FollowFocus();
  for (const auto& [name, command] : editCommands) {
    menuBar.BindHandler(name, [command = command] {
      Edit(Target(), command);
      return true;
    });
  }
  QObject::connect(&menuBar.Menu("EditMenu"), &QMenu::aboutToShow, &menuBar, [&menuBar] {
    for (const auto& [name, command] : editCommands) menuBar.Item(name).setEnabled(CanEdit(Target(), command));
    if (WindowCount() > 0) WindowAt(0).EnableMenuItems(menuBar);
  });
  // Keeps the items enabled while the menu is closed, because a disabled item would swallow its shortcut.
  QObject::connect(&menuBar.Menu("EditMenu"), &QMenu::aboutToHide, &menuBar, [&menuBar] {
    for (const auto& [name, command] : editCommands) menuBar.Enable(name);
  });
}

// Some platforms move these items to the application's own menu.
void SetMenuRoles(const MenuBar& menuBar) {
  menuBar.Item("FileQuit").setMenuRole(QAction::QuitRole);
  menuBar.Item("AppleAbout").setMenuRole(QAction::AboutRole);
  menuBar.Item("ApplePreferences").setMenuRole(QAction::PreferencesRole);
}

constexpr Int32 longestLine = 33;  // characters; a longer first line is cut to cutLine
constexpr Int32 cutLine = 30;

// A window and its item in the Window menu.
struct WindowMenuItem {
  QPointer<Window> winRef;
  QPointer<QAction> item;
};
std::vector<WindowMenuItem> winRefList;  // in the order of the menu

bool IsListed(const Window& window) {
  for (const WindowMenuItem& entry : winRefList) {
    if (entry.winRef == &window) return true;
  }
  return false;
}

bool IsOpen(const Window& window) {
  for (Int32 i = 0; i < WindowCount(); ++i) {
    if (&WindowAt(i) == &window) return true;
  }
  return false;
}

void RemoveGone(QMenu& menu) {
  for (auto entry = winRefList.end(); entry != winRefList.begin();) {
    --entry;
    if (entry->winRef && entry->item && entry->winRef->isVisible() && IsOpen(*entry->winRef)) continue;
    if (entry->item) {
      menu.removeAction(entry->item);
      entry->item->deleteLater();
    }
    entry = winRefList.erase(entry);
  }
}

void AppendNew(QMenu& menu) {
  for (Int32 i = 0; i < WindowCount(); ++i) {
    Window& window = WindowAt(i);
    if (IsListed(window)) continue;
    QAction* item = menu.addAction(window.windowTitle());
    item->setCheckable(true);
    item->setMenuRole(QAction::NoRole);
    const QPointer<Window> winRef = &window;
    QObject::connect(item, &QAction::triggered, item, [winRef] {
      if (winRef) winRef->Show();
    });
    winRefList.push_back({winRef, item});
  }
}

bool AreSeveralEquationsOpen() {
  int count = 0;
  for (Int32 i = 0; i < WindowCount() && count < 2; ++i) {
    if (dynamic_cast<const winSumlet*>(&WindowAt(i)) != nullptr) ++count;
  }
  return count > 1;
}

// Doubles each "&", which would otherwise mark a mnemonic.
QString EntryText(const winSumlet& window, bool showFirstLine) {
  String text = FromQString(window.windowTitle());
  String firstLine = showFirstLine ? window.GetFirstLine() : String();
  if (Len(firstLine) > longestLine) firstLine = Left(firstLine, cutLine) + "\u2026";
  if (!firstLine.empty()) text += " (" + firstLine + ")";
  return ToQString(ReplaceAll(text, "&", "&&"));
}

}  // namespace

MenuBar& MenuBar1() {
  static MenuBar* menuBar = nullptr;
  if (menuBar) return *menuBar;
  menuBar = new MenuBar;
  // Menus are widgets: one that is open at the end must not outlive the toolkit, as a child of qApp would.
  qAddPostRoutine([] { delete std::exchange(menuBar, nullptr); });
  Append(*menuBar, "FileMenu", "&File", fileItems);
  Append(*menuBar, "EditMenu", "&Edit", editItems);
  Append(*menuBar, "WindowMenu", "Window", windowItems);
  Append(*menuBar, "HelpMenu", "Help", helpItems);
  menuBar->AddShortcut("HelpSumletHelp", "F1");
  BindEditItems(*menuBar);
  SetMenuRoles(*menuBar);
  return *menuBar;
}

void MyWindowManager::BuildWindowMenu(QMenu& windowMenu) {
  RemoveGone(windowMenu);
  AppendNew(windowMenu);
  const bool showFirstLine = AreSeveralEquationsOpen();
  for (const WindowMenuItem& entry : winRefList) {
    entry.item->setChecked(WindowCount() > 0 && entry.winRef == &WindowAt(0));
    const auto* equation = dynamic_cast<const winSumlet*>(entry.winRef.data());
    if (equation != nullptr) entry.item->setText(EntryText(*equation, showFirstLine));
  }
}

}  // namespace sumlet
