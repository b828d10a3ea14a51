#include "shell/application_icon.h"

#include <QString>

namespace sumlet {

QIcon ApplicationIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256})
    icon.addFile(QStringLiteral(":/icons/sumlet-%1.png").arg(size), QSize(size, size));
  return icon;
}

}  // namespace sumlet
