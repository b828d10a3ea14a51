// The settings file, in a folder of the test's own: what is written, and what any content or obstacle leads to.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "stored_bytes.h"
#include "templates/templates_manager.h"

namespace sumlet {
namespace {

namespace fs = std::filesystem;

class Settings : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    TemplatesManager::RegisterSection();
    MyWindowManager::RegisterSection();
  }

  Settings() {
    MyWindowManager::SetWindowList([] { return std::vector<const MyWindowManager::StoredWindow*>(); });
    setenv("XDG_DATA_HOME", folder_.c_str(), 1);
    setenv("XDG_CONFIG_HOME", folder_.c_str(), 1);
    fs::create_directories(file_.parent_path());
    SetAll(7, {"old"});
  }
  void TearDown() override { fs::remove_all(folder_); }

  static void SetAll(Int32 runs, const Array<String>& templates) {
    Preferences::RunCount = runs;
    Preferences::TextSize = 20;
    Preferences::TemplatesOpen = false;
    Preferences::RememberEquations = Preferences::ShownReviewDialog = true;
    TemplatesManager::Key = TemplatesManager::EquationText = templates;
  }

  static void ExpectDefaults() {
    EXPECT_EQ(Preferences::RunCount, 0);
    EXPECT_EQ(Preferences::TextSize, 13);
    EXPECT_TRUE(Preferences::TemplatesOpen && Preferences::RememberEquations && !Preferences::ShownReviewDialog);
    EXPECT_EQ(TemplatesManager::Key, (Array<String>{"Variables Example", "Function Example"}));
    EXPECT_EQ(TemplatesManager::EquationText[0], "# You can use multiple variables\nx=2\ny=x+2\ny+2");
    EXPECT_EQ(TemplatesManager::EquationText[1], "# See Help menu for more functions \n\ny=max(ceil(30.9),30)");
  }

  static std::vector<String> AlertsOfLoad() {
    const AlertLog alerts;
    Preferences::Load();
    return alerts.Texts();
  }
  std::vector<String> AlertsOfLoading(std::string_view content) const {
    std::ofstream(file_, std::ios::binary) << content;
    return AlertsOfLoad();
  }
  [[nodiscard]] String Saved() const {
    Preferences::Save();
    return FolderItem(file_).ReadBinaryFile().value_or("unreadable");
  }

  static fs::path NewFolder() {
    String name = testing::TempDir() + "settings-XXXXXX";
    return mkdtemp(name.data());
  }

  const fs::path folder_ = NewFolder();
  const fs::path file_ = folder_ / "Application Support/com.fernhill.sumlet/preferences";
};

// Without a file there are the defaults and the examples, once.
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
  EXPECT_EQ(Preferences::RunCount, 1);
  EXPECT_EQ(TemplatesManager::Key.Ubound(), -1);
}

TEST_F(Settings, ValuesAreReadByKey) {
  const String list = Bytes({{"0", Bytes({{"name", "n"}, {"equation", "1"}})}});
  const Items items = {{"TextSize", ""}, {"TEMPLATELIST", list},    {"?", "\xFF"},      {"RunCount", "99999999999"},
                       {"RunCount", ""}, {"RememberEquations", ""}, {"WindowList", ""}, {"TemplatesOpen", "TRUE"}};
  EXPECT_TRUE(AlertsOfLoading(Bytes(items)).empty());
  EXPECT_EQ(Preferences::RunCount, 2147483647);
  EXPECT_EQ(Preferences::TextSize, 0);  // an empty value is no missing value
  EXPECT_TRUE(Preferences::TemplatesOpen && !Preferences::RememberEquations && !Preferences::ShownReviewDialog);
  EXPECT_EQ(TemplatesManager::Key, Array<String>{"n"});
  const String saved = Saved();
  EXPECT_TRUE(AlertsOfLoad().empty());
  EXPECT_EQ(Preferences::RunCount, 2147483647);
}

TEST_F(Settings, DamagedFiles) {
  const String sevens = Bytes({{"0", "\x07"}, {"1", "\x07"}, {"x", ""}});
  const std::pair<String, std::vector<String>> rows[] = {
      {"", UnknownFormats({"0", "0"})},
      {"\x01", UnknownFormats({"0", "0"})},
      {"A", UnknownFormats({"65", "0", "0"})},
      {"<RunCount>5</RunCount>", UnknownFormats({"60", "0", "0"})},
      {Bytes({{"TemplateList", "\x03"}, {"WindowList", "\x01"}}), UnknownFormats({"3"})},
      {Bytes({{"TemplateList", sevens}, {"WindowList", "\x01"}}), UnknownFormats({"7", "0"})},
      {Bytes({{"TemplateList", "\x01"}, {"WindowList", Bytes({{"0", ""}, {"1", ""}})}}), UnknownFormats({"0"})},
  };
  for (const auto& [content, alerts] : rows) {
    EXPECT_EQ(AlertsOfLoading(content), alerts) << testing::PrintToString(content);
    ExpectDefaults();
  }
}

// Whatever length is left of a file, its whole items are there and the others have their defaults.
TEST_F(Settings, CutAtEveryLength) {
  SetAll(4, {"first", "second"});
  const String content = Saved();
  // An item is dropped as well while one byte alone is left behind it.
  const auto isWhole = [&content](std::size_t length, std::string_view nextKey) {
    const std::size_t end = nextKey.empty() ? content.size() : content.find(nextKey) - 1;
    return length == end || length > end + 1;
  };
  for (std::size_t length = 0; length <= content.size(); ++length) {
    const bool hasTemplates = isWhole(length, "WindowList");
    const auto missing = (hasTemplates ? 0u : 1u) + (isWhole(length, "") ? 0u : 1u);
    EXPECT_EQ(AlertsOfLoading(content.substr(0, length)), std::vector<String>(missing, UnknownFormats({"0"}).front()));
    EXPECT_EQ(Preferences::RunCount, isWhole(length, "TemplatesOpen") ? 5 : 0) << length;
    EXPECT_EQ(Preferences::TextSize, isWhole(length, "RememberEquations") ? 20 : 13) << length;
    EXPECT_EQ(Preferences::ShownReviewDialog, isWhole(length, "TemplateList")) << length;
    EXPECT_EQ(TemplatesManager::Key.Ubound(), Preferences::RunCount == 0 || hasTemplates ? 1 : -1) << length;
  }
}

// One flipped byte can damage a list and one that lies in it, and each is told of once.
TEST_F(Settings, FlippedBytes) {
  SetAll(4, {"first", "second"});
  const String content = Saved();
  std::mt19937 random(7);
  for (std::size_t i = 0; i < content.size(); ++i) {
    for (const unsigned flip : {1u, 0x80u, 0xFFu, static_cast<unsigned>(random())}) {
      String damaged = content;
      damaged[i] = static_cast<char>(static_cast<unsigned char>(damaged[i]) ^ flip);
      EXPECT_LE(AlertsOfLoading(damaged).size(), i == 0 ? 3u : 2u) << i << " " << flip;
    }
  }
}

// Nothing can be read or written: no alert, the defaults, and what stands there stays.
TEST_F(Settings, Obstacles) {
  const fs::path support = folder_ / "Application Support";
  const fs::path away = folder_ / "away";
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"a folder in place of the file", [&] { fs::create_directory(file_); }},
      {"a pipe in place of the file", [&] { mkfifo(file_.c_str(), 0600); }},
      {"a full device in place of the file", [&] { fs::create_symlink("/dev/full", file_); }},
      {"a link to itself", [&] { fs::create_symlink(file_, file_); }},
      {"a file in place of the folder", [&] { (fs::rename(support, away), std::ofstream(support) << "kept"); }},
      {"a dead link in place of the folder",
       [&] { (fs::rename(support, away), fs::create_symlink("/none/x", support)); }},
      {"a data folder that cannot be", [&] { setenv("XDG_DATA_HOME", "/dev/null/data", 1); }},
  };
  for (const auto& [obstacle, Place] : rows) {
    SCOPED_TRACE(obstacle);
    fs::remove_all(support);
    fs::remove_all(away);
    fs::create_directories(file_.parent_path());
    Place();
    for (int again = 0; again < 2; ++again) {
      SetAll(7, {"old"});
      EXPECT_TRUE(AlertsOfLoad().empty());
      ExpectDefaults();
      const AlertLog alerts;
      EXPECT_EQ(Saved(), "unreadable");
      EXPECT_TRUE(alerts.Texts().empty());
    }
  }
}

TEST_F(Settings, ForbiddenPlaces) {
  if (geteuid() == 0) return;  // nothing is forbidden to root
  const String content = Saved();
  fs::permissions(file_, fs::perms::owner_write);
  EXPECT_TRUE(AlertsOfLoad().empty());
  ExpectDefaults();
  fs::permissions(file_, fs::perms::owner_read);
  EXPECT_EQ(Saved(), content);
  fs::remove(file_);
  fs::permissions(file_.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(Saved(), "unreadable");
  fs::permissions(file_.parent_path(), fs::perms::owner_all);
}

TEST_F(Settings, ALinkIsFollowed) {
  const String content = Saved();
  const fs::path elsewhere = file_.parent_path() / "elsewhere";
  fs::remove(file_);
  fs::create_symlink(elsewhere, file_);  // leads nowhere yet
  EXPECT_EQ(Saved(), content);
  EXPECT_TRUE(fs::is_symlink(file_) && fs::is_regular_file(elsewhere));
}

TEST_F(Settings, NoRoom) {
  const String content = Saved();
  rlimit before = {};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit tight = {content.size() + 16, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &tight);
  SetAll(7, {String(1000, 'x')});
  EXPECT_EQ(Saved(), content);
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
}

}  // namespace
}  // namespace sumlet
