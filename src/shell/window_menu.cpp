#include "shell/window_menu.h"

#include <QAction>
#include <QPointer>
#include <vector>

#include "equationwindow/win_sumlet.h"
#include "framework/ui/qt_text.h"
#include "framework/ui/window.h"

namespace sumlet::MyWindowManager {
namespace {

constexpr Int32 longestLine = 33;  // characters of a first line that still stand whole
constexpr Int32 cutLine = 30;

// One entry for each window in winRefList, in the same order.
struct WindowMenuItem {
  QPointer<Window> winRef;
  QPointer<QAction> item;
};
std::vector<WindowMenuItem> winRefList;

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

// An "&" in the text is no mnemonic.
QString EntryText(const winSumlet& window, bool showFirstLine) {
  String text = FromQString(window.windowTitle());
  String firstLine = showFirstLine ? window.GetFirstLine() : String();
  if (Len(firstLine) > longestLine) firstLine = Left(firstLine, cutLine) + "\u2026";
  if (!firstLine.empty()) text += " (" + firstLine + ")";
  return ToQString(ReplaceAll(text, "&", "&&"));
}

}  // namespace

void BuildWindowMenu(QMenu& windowMenu) {
  RemoveGone(windowMenu);
  AppendNew(windowMenu);
  const bool showFirstLine = AreSeveralEquationsOpen();
  for (const WindowMenuItem& entry : winRefList) {
    entry.item->setChecked(WindowCount() > 0 && entry.winRef == &WindowAt(0));
    const auto* equation = dynamic_cast<const winSumlet*>(entry.winRef.data());
    if (equation != nullptr) entry.item->setText(EntryText(*equation, showFirstLine));
  }
}

}  // namespace sumlet::MyWindowManager
