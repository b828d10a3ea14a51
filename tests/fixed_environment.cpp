// Gives each test binary the same environment on every machine, before main and thus before the toolkit reads it: the
// fonts of scripts/fonts.conf, and no settings of the developer's desktop.
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

bool BelongsToTheDesktop(const std::string& name) {
  for (const char* prefix : {"DBUS_", "DESKTOP_", "FONTCONFIG_", "FREETYPE_", "GDK_", "GTK_", "KDE_", "LANG", "LC_",
                             "QT_", "SESSION_", "XCURSOR_", "XDG_"})
    if (name.starts_with(prefix)) return true;
  return false;
}

const bool isFixed = [] {
  std::vector<std::string> names;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    names.push_back(text.substr(0, text.find('=')));
  }
  for (const std::string& name : names)
    if (BelongsToTheDesktop(name)) unsetenv(name.c_str());
  setenv("FONTCONFIG_FILE", SUMLET_FONTS_CONF, 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  setenv("TZ", "UTC", 1);
  return true;
}();

}  // namespace
