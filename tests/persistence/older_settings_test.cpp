// The settings of the older kind, a property list, which is read where there is no settings file.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "framework/text/bytes.h"
#include "framework/text/numbers.h"
#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "stored_bytes.h"
#include "templates/templates_manager.h"

namespace sumlet {
namespace {

namespace fs = std::filesystem;

String opened;  // the windows, back to front

class OlderSettings : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    using MyWindowManager::Record;
    TemplatesManager::RegisterSection();
    MyWindowManager::RegisterSection();
    MyWindowManager::SetWindowList([] { return std::vector<const MyWindowManager::StoredWindow*>(); });
    MyWindowManager::RegisterRestorer({"template", [](const Record&) { opened += "[chooser]"; }});
    MyWindowManager::RegisterRestorer(
        {"equation", [](const Record& record) {
           opened += "[" + DecodeURLComponent(VariantToString(record.LoadItem("equation", ""))) + "@" +
                     Str(VariantToInt32(record.LoadItem("left", Int32ToVariant(20)))) +
                     (VariantToBoolean(record.LoadItem("fullscreen", BooleanToVariant(false))) ? " full]" : "]");
         }});
  }
  OlderSettings() {
    setenv("XDG_DATA_HOME", folder_.c_str(), 1);
    setenv("XDG_CONFIG_HOME", folder_.c_str(), 1);
  }
  ~OlderSettings() override { fs::remove_all(folder_); }

  static fs::path NewFolder() {
    String name = testing::TempDir() + "older-XXXXXX";
    return mkdtemp(name.data());
  }

  const fs::path folder_ = NewFolder();
  const FolderItem file_{folder_ / "com.fernhill.sumlet.plist"};
};

String Templates() {
  String text;
  for (Int32 i = 0; i <= TemplatesManager::Key.Ubound(); ++i)
    text += "[" + TemplatesManager::Key[i] + "=" + TemplatesManager::EquationText[i] + "]";
  return text;
}

String Dict(const char* key, const String& lines) {
  return "<key>" + String(key) + "</key>\n<dict>\n" + lines + "</dict>\n";
}
String Template(const char* key, const char* name, const char* text) {
  return Dict(key, "<key>name</key>\n<string>" + String(name) + "</string>\n<key>equation</key>\n<string>" + text +
                       "</string>\n");
}
String Window(const char* key, const char* text, const String& more = {}) {
  return Dict(key, "<key>equation</key>\n<string>" + String(text) + "</string>\n" + more);
}

TEST_F(OlderSettings, Contents) {
  const String runs = "<key>runcount</key>\n<integer>3</integer>\n";
  const String examples =
      "[Variables Example=# You can use multiple variables\nx=2\ny=x+2\ny+2]"
      "[Function Example=# See Help menu for more functions \n\ny=max(ceil(30.9),30)]";
  const String left = "<key>left</key>\n<integer>7</integer>\n<key>fullscreen</key>\n<true/>\n";
  const String windows = Dict("WindowList", Window("0", "1%2B1", left) + Dict("1", "") + Window("2", "back") +
                                                Dict("3", "<key>template</key>\n<true/>\n"));
  const struct {
    String lines;
    const char* settings;
    String templates;
    const char* windows;
  } rows[] = {
      {"", "0 13", examples, ""},
      {"<key>RunCount</key>\n<string>x</string>\n<key>TextSize</key>\n<real>20.9</real>\n", "0 20", examples, ""},
      {runs + Dict("TemplateList", Template("1", "n", "a%0Ab") + Template("0", "", "") + Dict("2", "")) + windows,
       "3 13", "[=][n=a\nb]", "[chooser][back@20][1+1@7 full]"},
      // keys that do not count up: those that are missing come into being, empty
      {runs + Dict("TemplateList", Template("a", "n", "1") + Template("0", "m", "2")), "3 13", "[m=2]", ""},
      {"<key>RememberEquations</key>\n<false/>\n" + windows, "0 13", examples, ""},
      {"<key>RememberEquations</key>\n<string>true</string>\n" + windows, "0 13", examples, ""},
      // what is out of place ends it
      {runs + "<key>TemplateList</key>\n<string>x</string>\n" + windows, "3 13", "", ""},
      {"<key>TemplateList</key>\n<string>x</string>\n" + windows, "0 13", examples, ""},
      {runs + Dict("TemplateList", Template("0", "n", "1") + "<key>1</key>\n<string>x</string>\n") + windows, "3 13",
       "[n=1]", ""},
      {runs + Dict("TemplateList", "") + "<key>WindowList</key>\n<array>\n<string>x</string>\n</array>\n", "3 13", "",
       ""},
      {runs + "<key>WindowList</key>\n<true/>\n", "3 13", "", ""},
  };
  for (const auto& row : rows) {
    const String content = "<?xml?>\n<plist>\n<dict>\n" + row.lines + "</dict>\n</plist>\n";
    std::ofstream(file_.Path(), std::ios::binary) << content;
    opened.clear();
    const AlertLog alerts;
    Preferences::Load();
    EXPECT_EQ(Str(Preferences::RunCount) + " " + Str(Preferences::TextSize), row.settings) << row.lines;
    EXPECT_EQ(Templates(), row.templates) << row.lines;
    EXPECT_EQ(opened, row.windows) << row.lines;
    EXPECT_TRUE(alerts.Texts().empty());
    EXPECT_EQ(file_.ReadBinaryFile(), content);
  }
}

TEST_F(OlderSettings, AreReadNoMoreOnceTheSettingsAreSaved) {
  std::ofstream(file_.Path()) << "<plist>\n<dict>\n<key>TextSize</key>\n<integer>30</integer>\n</dict>\n";
  Preferences::Load();
  EXPECT_EQ(Preferences::TextSize, 30);
  Preferences::Save();
  std::ofstream(file_.Path()) << "<plist>\n<dict>\n<key>TextSize</key>\n<integer>40</integer>\n</dict>\n";
  Preferences::Load();
  EXPECT_EQ(Preferences::TextSize, 30);
}

}  // namespace
}  // namespace sumlet
