// Storing and loading the templates, and the session with windows that are not on a screen.
#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>
#include <tuple>
#include <vector>

#include "stored_bytes.h"

namespace sumlet {

String PageBytes(std::string_view heading) {
  std::ifstream file(SUMLET_FORMAT_PAGE);
  const String page(std::istreambuf_iterator<char>(file), {});
  const String fence = "```hex\n";
  const std::size_t begin = page.find(fence, page.find(heading)) + fence.size();
  std::istringstream block(page.substr(begin, page.find("```", begin) - begin));
  String bytes;
  for (String line; std::getline(block, line);) {
    std::istringstream numbers(line.substr(0, line.find(';')));
    for (int byte = 0; numbers >> std::hex >> byte;) bytes += static_cast<char>(byte);
  }
  return bytes;
}

namespace {

std::vector<String> LoadTemplates(std::string_view data, Int32 runCount = 1) {
  Preferences::RunCount = runCount;
  return AlertsOf([data] { TemplatesManager::Load(data); });
}

TEST(Templates, Storing) {
  TemplatesManager::Key = {"n"};
  TemplatesManager::EquationText = {"1"};
  EXPECT_EQ(TemplatesManager::Store(), PageBytes("### Templates"));
  TemplatesManager::Key = {"b", "B", "empty", "é\n"};
  TemplatesManager::EquationText = {"1", "# <é>\t50%\n\n\xFF", "", "4"};
  EXPECT_TRUE(LoadTemplates(TemplatesManager::Store()).empty());
  EXPECT_EQ(Templates(), "[b=1][B=# <é>\t50%\n\n\xFF][é\n=4]");
}

TEST(Templates, Loading) {
  const auto record = [](const char* name, const char* text) { return Bytes({{"equation", text}, {"name", name}}); };
  const std::tuple<String, const char*, std::vector<String>> rows[] = {
      {Bytes({{"1", record("n", "%31")}, {"0", record("m", "2%")}}), "[m=2%][n=1]", {}},
      {Bytes({{"0", record("", "1")}, {"1", Bytes({{"name", "n"}})}}), "", {}},
      {Bytes({{"0", record("n", "1")}, {"0", record("m", "2")}, {"x", ""}}), "[n=1]", UnknownFormats({"0"})},
      {Bytes({{"0", record("<n>", "1")}}), "", {}},  // taken for the text form
  };
  for (const auto& [data, templates, alerts] : rows) {
    EXPECT_EQ(LoadTemplates(data), alerts) << data;
    EXPECT_EQ(Templates(), templates) << data;
  }
  EXPECT_TRUE(LoadTemplates(Bytes({{"0", record("n", "1")}}), 0).empty());
  EXPECT_EQ(TemplatesManager::Key, (Array<String>{"n", "Variables Example", "Function Example"}));
}

TEST(Templates, AddingANameThatExists) {
  const std::tuple<const char*, DialogButton, const char*> rows[] = {
      {"new", DialogButton::Cancel, "[a=1][B=2][b=3][new=9]"},  // does not ask
      {"b", DialogButton::Action, "[a=1][B=9][b=3]"},
      {"A", DialogButton::Cancel, "[a=1][B=2][b=3]"},
      {"A", DialogButton::Alternate, "[a=1][B=2][b=3][A=9]"},
  };
  for (const auto& [name, answer, templates] : rows) {
    TemplatesManager::Key = {"a", "B", "b"};
    TemplatesManager::EquationText = {"1", "2", "3"};
    const HookGuard question = ShowDialog.Set([answer = answer](const MessageDialog& dialog) {
      EXPECT_EQ(dialog.Message, "A template with this name already exists. Would you like to replace it?");
      EXPECT_EQ(dialog.ActionButton + "/" + dialog.AlternateActionButton, "Replace/Save as New");
      EXPECT_TRUE(dialog.CancelButton);
      return answer;
    });
    TemplatesManager::Add(name, "9");
    EXPECT_EQ(Templates(), templates) << name;
  }
}

std::vector<String> LoadWindows(std::string_view data) {
  opened.clear();
  return AlertsOf([data] { MyWindowManager::Load(data); });
}

TEST(Session, RestoresTheFrontWindowLast) {
  RegisterStores();
  Preferences::RememberEquations = true;
  const FakeWindow front(Items{{"equation", "1%0A"}});
  const FakeWindow chooser(Items{{"template", "True"}});
  const HookGuard windows = MyWindowManager::WindowList.Set([&] {
    return std::vector<const MyWindowManager::StoredWindow*>{&front, nullptr, &chooser};
  });
  const String stored = MyWindowManager::Store();
  EXPECT_EQ(stored, Bytes({{"0", Bytes({{"equation", "1%0A"}})}, {"1", "\x01"}, {"2", Bytes({{"template", "True"}})}}));
  EXPECT_EQ(LoadWindows(stored).size(), 1u);
  EXPECT_EQ(opened, "[chooser][1\n@20]");

  Preferences::RememberEquations = false;
  EXPECT_EQ(MyWindowManager::Store(), "");
  EXPECT_TRUE(LoadWindows(stored).empty() && LoadWindows("").empty() && opened.empty());
}

TEST(Session, DamagedRecords) {
  RegisterStores();
  Preferences::RememberEquations = true;
  const std::tuple<String, const char*, std::vector<String>> rows[] = {
      {Bytes({{"left", "7"}, {"equation", "1%"}}), "[1%@7]", {}},
      {Bytes({{"left", "7"}, {"text", "1"}}), "", {}},
      {Bytes({{"equation", "1"}, {"template", ""}}), "[chooser]", {"chooser"}},
      {Bytes({{"left", "x"}, {"equation", "12345"}}).substr(0, 20), "[@0]", {}},  // the text is truncated
      {"", "", UnknownFormats({"0"})},
  };
  for (const auto& [record, window, alerts] : rows) {
    EXPECT_EQ(LoadWindows(Bytes({{"0", Bytes({{"equation", "2"}})}, {"1", record}})), alerts) << record;
    EXPECT_EQ(opened, String(window) + "[2@20]") << record;
  }
  // An alert about damaged records appears once, an alert of a window each time.
  const String chooser = Bytes({{"template", ""}});
  EXPECT_EQ(LoadWindows(Bytes({{"0", ""}, {"1", chooser}, {"2", ""}, {"3", chooser}})).size(), 3u);
  EXPECT_EQ(LoadWindows(""), UnknownFormats({"0"}));
}

}  // namespace
}  // namespace sumlet
