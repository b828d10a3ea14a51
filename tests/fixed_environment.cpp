// Gives each test binary the same environment on every machine: the fonts of scripts/fonts.conf, and no settings of the
// developer's desktop. Runs before main, because the toolkit reads the environment there.
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace {

bool BelongsToTheDesktop(std::string_view variable) {
  const auto prefixes = {"DBUS_", "DESKTOP_", "FREETYPE_", "GDK_",     "GTK_",     "KDE_",
                         "LANG",  "LC_",      "QT_",       "SESSION_", "XCURSOR_", "XDG_"};
  return std::any_of(prefixes.begin(), prefixes.end(), [=](auto prefix) { return variable.starts_with(prefix); });
}

const bool isFixed = [] {
  char** end = environ;
  while (*end != nullptr) ++end;
  *std::remove_if(environ, end, BelongsToTheDesktop) = nullptr;
  setenv("FONTCONFIG_FILE", SUMLET_FONTS_CONF, 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  setenv("TZ", "UTC", 1);
  return true;
}();

}  // namespace
