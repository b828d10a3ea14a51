// A minimal Qt program with the same kinds of controls, and as many menus and items, as Sumlet, but without functions.
// start_up.py compares Sumlet's start with its start.
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

void AddMenus(QMenuBar& bar) {
  constexpr int items[] = {11, 8, 4, 8};
  for (const int count : items) {
    QMenu* menu = bar.addMenu(QStringLiteral("&Menu"));
    for (int i = 0; i < count; ++i) {
      QAction* item = menu->addAction(QStringLiteral("Item %1").arg(i));
      if (i % 2 == 0) item->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+%1").arg(QChar(u'A' + i))));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(600, 400);
  auto* layout = new QVBoxLayout(&window);
  auto* bar = new QMenuBar;
  AddMenus(*bar);
  layout->setMenuBar(bar);
  auto* list = new QListWidget;
  list->addItems({QStringLiteral("New"), QStringLiteral("One"), QStringLiteral("Two")});
  layout->addWidget(list);
  layout->addWidget(new QPlainTextEdit(QStringLiteral("# A comment\nx=2\nx+2")));
  layout->addWidget(new QLabel(QStringLiteral("4")));
  layout->addWidget(new QPushButton(QStringLiteral("Choose")));
  window.show();
  return QApplication::exec();
}
