// The settings file, the recovery file and the older settings file, a property list, in a temporary folder.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "plist/plist.h"
#include "stored_bytes.h"
#include "temporary_folder.h"

namespace sumlet {
namespace {

namespace fs = std::filesystem;

const String examples =
    "[Variables Example=# You can use multiple variables\nx=2\ny=x+2\ny+2]"
    "[Function Example=# See Help menu for more functions \n\ny=max(ceil(30.9),30)]";

class Settings : public testing::Test {
 protected:
  Settings() {
    RegisterStores();
    setenv("XDG_DATA_HOME", folder_.c_str(), 1);
    setenv("XDG_CONFIG_HOME", folder_.c_str(), 1);
    fs::create_directories(file_.parent_path());
    SetAll(7, {"old"});
  }
  static void SetAll(Int32 runs, const Array<String>& templates) {
    Preferences::RunCount = runs;
    Preferences::TextSize = 20;
    Preferences::TemplatesOpen = false;
    Preferences::RememberEquations = Preferences::ShownReviewDialog = true;
    TemplatesManager::Key = TemplatesManager::EquationText = templates;
  }
  static String Shown() {
    String text = Str(Preferences::RunCount) + " " + Str(Preferences::TextSize);
    text += Preferences::TemplatesOpen ? " open" : "";
    text += Preferences::RememberEquations ? " remember" : "";
    return text + (Preferences::ShownReviewDialog ? " reviewed" : "");
  }
  static void ExpectDefaults() {
    EXPECT_EQ(Shown(), "0 13 open remember");
    EXPECT_EQ(Templates(), examples);
  }

  static std::vector<String> AlertsOfLoad() {
    opened.clear();
    return AlertsOf(Preferences::Load);
  }
  std::vector<String> AlertsOfLoading(std::string_view content) const {
    std::ofstream(file_, std::ios::binary) << content;
    return AlertsOfLoad();
  }
  [[nodiscard]] String Saved() const {
    Preferences::Save();
    Preferences::FinishSaving();
    return FolderItem(file_).ReadBinaryFile().value_or("unreadable");
  }

  const TemporaryFolder temporary_;
  const fs::path folder_ = temporary_.Path();
  const fs::path file_ = folder_ / "Application Support/com.fernhill.sumlet/preferences";
  const FolderItem recovery_{file_.parent_path() / "recovery"};
  const FolderItem older_{folder_ / "com.fernhill.sumlet.plist"};
};

// Without a file the program has the defaults, and adds the examples only once.
TEST_F(Settings, FirstRuns) {
  fs::remove_all(folder_);
  EXPECT_TRUE(AlertsOfLoad().empty());
  ExpectDefaults();
  EXPECT_FALSE(fs::exists(folder_));
  TemplatesManager::Remove(1);
  TemplatesManager::Remove(0);
  for (int again = 0; again < 2; ++again) EXPECT_EQ(Saved(), PageBytes("After the first run"));
  for (fs::path made = file_.parent_path(); made != folder_.parent_path(); made = made.parent_path())
    EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all) << made;
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  SetAll(7, {"old"});
  EXPECT_TRUE(AlertsOfLoad().empty());
  EXPECT_EQ(Shown() + Templates(), "1 13 open remember");
}

TEST_F(Settings, ValuesAreReadByKey) {
  const String list = Bytes({{"0", Bytes({{"name", "n"}, {"equation", "1"}})}});
  const Items items = {{"TextSize", ""}, {"TEMPLATELIST", list},    {"?", "\xFF"},      {"RunCount", "99999999999"},
                       {"RunCount", ""}, {"RememberEquations", ""}, {"WindowList", ""}, {"TemplatesOpen", "TRUE"}};
  EXPECT_TRUE(AlertsOfLoading(Bytes(items)).empty());
  EXPECT_EQ(Shown() + Templates(), "2147483647 0 open[n=1]");  // an empty value does not count as missing
  Preferences::Save();
  EXPECT_TRUE(AlertsOfLoad().empty());
  EXPECT_EQ(Preferences::RunCount, 2147483647);
}

TEST_F(Settings, LineValuesAreStoredOnlyWhileTheyAreShown) {
  const String without = Saved();
  Preferences::ShowLineValues = true;
  const String with = Saved();
  EXPECT_EQ(ReplaceAll(with, "\x0EShowLineValues\x04True", ""), without);
  Preferences::ShowLineValues = false;
  EXPECT_EQ(Saved(), without) << "written over a longer file";
  EXPECT_TRUE(AlertsOfLoading(with).empty());
  EXPECT_TRUE(Preferences::ShowLineValues);
  EXPECT_TRUE(AlertsOfLoading(without).empty());
  EXPECT_FALSE(Preferences::ShowLineValues);
}

TEST_F(Settings, ATextFileResultsInTheDefaults) {
  EXPECT_EQ(AlertsOfLoading("<RunCount>5</RunCount>"), UnknownFormats({"60", "0", "0"}));
  ExpectDefaults();
}

// If the file cannot be read or written, the program uses the defaults, shows no alert and leaves everything in place.
TEST_F(Settings, Obstacles) {
  const fs::path support = folder_ / "Application Support";
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"a folder in place of the file", [&] { fs::create_directory(file_); }},
      {"a pipe in place of the file", [&] { mkfifo(file_.c_str(), 0600); }},
      {"a file too large to be read", [&] { std::ofstream(file_).seekp(1 << 30).put('x'); }},
      {"a data folder that cannot be", [&] { setenv("XDG_DATA_HOME", "/dev/null/data", 1); }},
  };
  for (const auto& [obstacle, Place] : rows) {
    SCOPED_TRACE(obstacle);
    fs::remove_all(support);
    fs::create_directories(file_.parent_path());
    Place();
    EXPECT_TRUE(AlertsOfLoad().empty());
    ExpectDefaults();
    EXPECT_TRUE(AlertsOf([this] { EXPECT_EQ(Saved(), "unreadable"); }).empty());
    recovery_.Delete();  // it contains what could not be saved
  }
}

// A start prefers the recovery file until the settings file has been written.
TEST_F(Settings, ARecoveryFileIsLoadedUntilTheNextSave) {
  const String saved = Saved();
  SetAll(7, {"typed since"});
  EXPECT_TRUE(Preferences::SaveRecovery());
  EXPECT_TRUE(AlertsOfLoading("torn").empty());
  EXPECT_EQ(Templates(), "[typed since=typed since]");
  EXPECT_NE(Saved(), saved);
  EXPECT_FALSE(Preferences::HasRecovery());
  // The recovery file stays if the settings file cannot be written.
  fs::remove(file_);
  fs::create_directory(file_);
  EXPECT_EQ(Saved(), "unreadable");
  EXPECT_TRUE(Preferences::HasRecovery());
}

TEST_F(Settings, ARelativeDataFolderIsIgnored) {
  setenv("XDG_DATA_HOME", "relative", 1);
  setenv("HOME", folder_.c_str(), 1);
  Preferences::Save();
  EXPECT_TRUE(fs::exists(folder_ / ".local/share/Application Support/com.fernhill.sumlet/preferences"));
}

TEST_F(Settings, ALinkIsFollowed) {
  const String content = Saved();
  const fs::path elsewhere = file_.parent_path() / "elsewhere";
  fs::remove(file_);
  fs::create_symlink(elsewhere, file_);  // its target does not exist yet
  EXPECT_EQ(Saved(), content);
  EXPECT_TRUE(fs::is_symlink(file_) && fs::is_regular_file(elsewhere));
}

void AddRecord(plistDict& list, const char* key, const char* name, const char* equation) {
  list.child(key).SetString("name", name);
  list.child(key).SetString("equation", equation);
}

TEST_F(Settings, TheOlderPropertyListIsReadUntilTheFirstSave) {
  plist older(older_);
  older.root().SetInteger("runcount", 3);
  AddRecord(older.root().child("TemplateList"), "1", "n", "a%0Ab");
  AddRecord(older.root().child("TemplateList"), "0", "", "");
  plistDict& windows = older.root().child("WindowList");
  AddRecord(windows, "0", "front", "1%2B1");
  windows.child("0").SetInteger("left", 7);
  windows.child("0").SetBoolean("fullscreen", true);
  windows.AddChild("1");
  AddRecord(windows, "2", "back", "2");
  older.Save();
  const std::optional<String> content = older_.ReadBinaryFile();
  EXPECT_TRUE(AlertsOfLoad().empty());
  EXPECT_EQ(Shown(), "3 13 open remember");
  EXPECT_EQ(Templates(), "[=][n=a\nb]");
  EXPECT_EQ(opened, "[2@20][1+1@7 full]");

  Preferences::TextSize = 30;
  Preferences::Save();
  AlertsOfLoad();
  EXPECT_EQ(Preferences::TextSize, 30);
  EXPECT_EQ(older_.ReadBinaryFile(), content);
}

TEST_F(Settings, AValueOfAWrongTypeEndsTheReadingOfTheOlderPropertyList) {
  plist older(older_);
  older.root().SetDouble("TextSize", 20.9);
  AddRecord(older.root().child("TemplateList"), "0", "n", "1");
  older.root().child("TemplateList").SetString("1", "no record");
  AddRecord(older.root().child("WindowList"), "0", "w", "1");
  older.Save();
  EXPECT_TRUE(AlertsOfLoad().empty());
  EXPECT_EQ(Shown(), "0 20 open remember");
  EXPECT_EQ(Templates(), "[n=1]");
  EXPECT_EQ(opened, "");

  older.root().Remove("TemplateList");
  older.root().SetString("TemplateList", "no list");
  older.Save();
  EXPECT_TRUE(AlertsOfLoad().empty());
  EXPECT_EQ(opened, "");
}

}  // namespace
}  // namespace sumlet
