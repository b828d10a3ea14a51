// Runs the tests of windows without a screen, and in the same environment on every machine: with the fonts of
// scripts/fonts.conf, and without the settings of the developer's desktop.
#include <gtest/gtest.h>

#include <QProcessEnvironment>

#include "framework/ui/application.h"

namespace {

void FixEnvironment() {
  for (const QString& variable : QProcessEnvironment::systemEnvironment().keys())
    for (const char* prefix : {"DBUS_", "DESKTOP_", "FREETYPE_", "KDE_", "LANG", "LC_", "QT_", "SESSION_", "XDG_"})
      if (variable.startsWith(QLatin1String(prefix))) qunsetenv(variable.toLatin1());
  qputenv("FONTCONFIG_FILE", SUMLET_FONTS_CONF);
  qputenv("LC_ALL", "C.UTF-8");
  qputenv("QT_QPA_PLATFORM", "offscreen");
}

}  // namespace

// The argument, where there is one, is the scale of the screen: 2 gives each pixel of a window four of the screen.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  FixEnvironment();
  if (argc > 1) qputenv("QT_SCALE_FACTOR", argv[1]);
  const sumlet::Application application("session_key");
  return RUN_ALL_TESTS();
}
