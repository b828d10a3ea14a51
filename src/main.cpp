// The window program: wires the parts together and runs them.
#include <QApplication>

#include "equationwindow/win_sumlet.h"

int main(int /*argc*/, char** argv) {
  int count = 1;  // the program has no options, and the toolkit's own are not offered either
  QApplication application(count, argv);
  QApplication::setApplicationName(QStringLiteral("sumlet"));
  QApplication::setApplicationVersion(QStringLiteral(SUMLET_VERSION));
  new sumlet::winSumlet;
  return QApplication::exec();
}
