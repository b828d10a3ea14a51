#include "shell/application_icon.h"

#include <QSize>
#include <QString>
#include <initializer_list>

namespace sumlet {
namespace {

QIcon IconOf(std::initializer_list<int> sizes) {
  QIcon icon;
  for (const int size : sizes) icon.addFile(QStringLiteral(":/icons/sumlet-%1.png").arg(size), QSize(size, size));
  return icon;
}

}  // namespace

QIcon ApplicationIcon() { return IconOf({16, 24, 32, 48, 64, 128, 256}); }

QIcon WindowIcon() { return IconOf({16, 24, 32, 48, 64}); }

}  // namespace sumlet
