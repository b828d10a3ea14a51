// In the toolkit many bars can share menus and actions. A disabled action swallows its shortcut, so the enabling pass
// also runs on a key press, before the toolkit looks up shortcuts.
#include "framework/ui/menu_bar.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenuBar>
#include <QShortcut>
#include <QString>
#include <QStyle>
#include <QStyleOptionMenuItem>
#include <algorithm>
#include <string_view>

#include "framework/fault.h"

namespace sumlet {
namespace {

template <typename Value>
Value& Named(const std::map<std::string, Value*>& values, const std::string& name) {
  const auto found = values.find(name);
  if (found == values.end()) throw Fault("a menu item that is not there");
  return *found->second;
}

// The accessible object of a menu's title belongs to the bar in which a screen reader first found it. When that bar is
// destroyed, the title would be missing from the other bars, so this deletes the object; the toolkit creates it again.
void ForgetTitle(QMenu& menu) {
  if (!QAccessible::isActive()) return;
  if (QAccessibleInterface* title = QAccessible::queryAccessibleInterface(menu.menuAction()))
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(title));
}

// The menu bar of one window. Styles mark a title only while its menu is open. This class also marks it while the bar
// has the focus, for example after Alt, so that the user sees where keys go.
class WindowMenuBar final : public QMenuBar {
 public:
  WindowMenuBar() {
#if !defined(Q_OS_MACOS)
    connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this,
            [this] { setActiveAction(actions().value(0)); });
#endif
  }

 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override {
    QMenuBar::initStyleOption(option, action);
    if (hasFocus() && action == activeAction()) option->state |= QStyle::State_Selected | QStyle::State_Sunken;
  }
};

// Whether the key is Alt and a character. If it is no mnemonic, a text control would insert the character. AltGr, which
// types characters, is a separate modifier, or Ctrl and Alt. On macOS Alt types characters.
bool IsAltCharacter([[maybe_unused]] const QKeyEvent& key) {
#if defined(Q_OS_MACOS)
  return false;
#else
  const Qt::KeyboardModifiers others = Qt::ControlModifier | Qt::GroupSwitchModifier;
  return (key.modifiers() & Qt::AltModifier) && !(key.modifiers() & others) && !key.text().isEmpty() &&
         key.text().front().isPrint();
#endif
}

// Whether the key types a character. No item has a plain character as its shortcut, and an enabling pass for each
// character would slow down typing.
bool IsTyping(const QKeyEvent& key) {
  const Qt::KeyboardModifiers plain = Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier;
  return !key.text().isEmpty() && key.text().front().isPrint() && !(key.modifiers() & ~plain);
}

}  // namespace

MenuBar::MenuBar() { qApp->installEventFilter(this); }

// A menu that is open emits aboutToHide when it is destroyed, and its handlers use the other members.
MenuBar::~MenuBar() { menus_.clear(); }

QMenu& MenuBar::AddMenu(const char* name, const char* text) {
  QMenu& menu = *menus_.emplace_back(std::make_unique<QMenu>(QString::fromUtf8(text)));
  menusByName_[name] = &menu;
  QObject::connect(&menu, &QMenu::aboutToShow, this, [this] { Update(); });
  return menu;
}

QAction& MenuBar::AddItem(QMenu& menu, const MenuItemDeclaration& declaration) {
  const std::string name = declaration.name;
  QAction* item = std::string_view(declaration.text) == "-" ? menu.addSeparator()
                                                            : menu.addAction(QString::fromUtf8(declaration.text));
  itemsByName_[name] = item;
  item->setObjectName(QString::fromStdString(name));
  item->setMenuRole(QAction::NoRole);
  if (*declaration.shortcut != '\0') {
    item->setShortcuts(QKeySequence::listFromString(QString::fromUtf8(declaration.shortcut)));
    item->setShortcutContext(Qt::ApplicationShortcut);
  }
  if (!declaration.autoEnable) {
    item->setEnabled(false);
    enabledOnDemand_.push_back(item);
  }
  QObject::connect(item, &QAction::triggered, this, [this, name] { Choose(name); });
  return *item;
}

void MenuBar::AddShortcut(const std::string& name, const char* shortcut) {
  auto* action = new QAction(this);
  action->setShortcut(QKeySequence(QString::fromUtf8(shortcut)));
  action->setShortcutContext(Qt::ApplicationShortcut);
  QObject::connect(action, &QAction::triggered, this, [this, name] { Choose(name); });
  hiddenShortcuts_.push_back(action);
}

QMenu& MenuBar::Menu(const std::string& name) const { return Named(menusByName_, name); }

QAction& MenuBar::Item(const std::string& name) const { return Named(itemsByName_, name); }

void MenuBar::AttachTo(Window& window) {
  for (QAction* action : hiddenShortcuts_) window.addAction(action);
  if (window.MenuBarVisible()) {
    auto* bar = new WindowMenuBar;
    for (const auto& menu : menus_) {
      bar->addMenu(menu.get());
      connect(bar, &QObject::destroyed, menu.get(), [title = menu.get()] { ForgetTitle(*title); });
    }
    window.SetMenuBar(bar);
    return;
  }
  for (const auto& menu : menus_) window.addActions(menu->actions());
}

void MenuBar::Update() {
  for (QAction* item : enabledOnDemand_) item->setEnabled(false);
  if (WindowCount() > 0) WindowAt(0).EnableMenuItems(*this);
  if (EnableMenuItems) EnableMenuItems();
}

bool MenuBar::Choose(const std::string& name) {
  if (WindowCount() > 0 && WindowAt(0).HandleCommand(name)) return true;
  const auto handler = handlers_.find(name);
  return handler != handlers_.end() && handler->second();
}

// Escape closes a menu and returns the focus to the text. The toolkit would leave the focus on the bar until a second
// Escape, so this sends that one.
bool MenuBar::Consumes(QObject* receiver, QKeyEvent& key) const {
  const auto isReceiver = [receiver](const auto& menu) { return menu.get() == receiver; };
  if (key.matches(QKeySequence::Cancel) && std::any_of(menus_.begin(), menus_.end(), isReceiver)) {
    static_cast<QMenu*>(receiver)->hide();
    if (auto* bar = qobject_cast<QMenuBar*>(QApplication::focusWidget())) QCoreApplication::sendEvent(bar, &key);
    return true;
  }
  const auto* control = qobject_cast<const QWidget*>(receiver);
  return control && control->testAttribute(Qt::WA_InputMethodEnabled) && IsAltCharacter(key);
}

bool MenuBar::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::KeyPress) return Consumes(receiver, static_cast<QKeyEvent&>(*event));
  if (event->type() != QEvent::ShortcutOverride || !receiver->isWindowType()) return false;
  if (!IsTyping(static_cast<const QKeyEvent&>(*event))) Update();
  return false;
}

}  // namespace sumlet
