// The two stores: templates, and the session through windows that are not on a screen. Also the page of the format.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "framework/text/bytes.h"
#include "framework/text/numbers.h"
#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "stored_bytes.h"
#include "templates/templates_manager.h"

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

using Lines = std::vector<String>;

Lines Templates() {
  Lines lines;
  for (Int32 i = 0; i <= TemplatesManager::Key.Ubound(); ++i) {
    lines.push_back(TemplatesManager::Key[i] + ": " + TemplatesManager::EquationText[i]);
  }
  return lines;
}

std::vector<String> LoadTemplates(std::string_view data, Int32 runCount = 1) {
  const AlertLog alerts;
  Preferences::RunCount = runCount;
  TemplatesManager::Load(data);
  return alerts.Texts();
}

TEST(Templates, Storing) {
  TemplatesManager::Key = {"n"};
  TemplatesManager::EquationText = {"1"};
  EXPECT_EQ(TemplatesManager::Store(), PageBytes("### Templates"));
  EXPECT_TRUE(LoadTemplates("\x01").empty());
  EXPECT_EQ(TemplatesManager::Store(), "\x01");

  const String hard = "# <é>\t50%\n\n\xFF" + String(70000, 'x');
  TemplatesManager::Key = {"b", "B", "empty", "<", "é\n", "a"};
  TemplatesManager::EquationText = {"1", hard, "", "3", "4", "5"};
  EXPECT_TRUE(LoadTemplates(TemplatesManager::Store()).empty());
  EXPECT_EQ(Templates(), (Lines{"b: 1", "B: " + hard, "<: 3", "é\n: 4", "a: 5"}));
}

TEST(Templates, Loading) {
  const auto record = [](const char* name, const char* text) { return Bytes({{"equation", text}, {"name", name}}); };
  const String tagged = "<equation>1</equation><name>n</name>";
  const struct {
    String data;
    Lines templates;
    std::vector<String> alerts;
  } rows[] = {
      {Bytes({{"1", record("n", "%31")}, {"0", record("m", "2%")}}), {"m: 2%", "n: 1"}, {}},
      {Bytes({{"0", record("", "1")}, {"1", Bytes({{"name", "n"}})}}), {}, {}},
      {Bytes({{"0", record("n", "1")}, {"0", record("m", "2")}}), {"n: 1"}, UnknownFormats({"0"})},
      {Bytes({{String(30, 'x'), ""}, {"0", tagged}}), {"n: 1"}, UnknownFormats({"0"})},
      // taken for the text form: the whole list, a record alone, none
      {Bytes({{"0", record("<n>", "1")}}), {}, {}},
      {Bytes({{"0", record("<n>", "1234567890")}}), {}, {}},
      {Bytes({{"0", record("<n>", "1234567890ab")}}), {"<n>: 1234567890ab"}, {}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(LoadTemplates(row.data), row.alerts) << row.data;
    EXPECT_EQ(Templates(), row.templates) << row.data;
  }
  EXPECT_TRUE(LoadTemplates(Bytes({{"0", record("n", "1")}}), 0).empty());
  EXPECT_EQ(TemplatesManager::Key, (Array<String>{"n", "Variables Example", "Function Example"}));
}

TEST(Templates, AddingANameThatExists) {
  const struct {
    const char* name;
    DialogButton answer;
    Lines templates;
  } rows[] = {
      {"new", DialogButton::Cancel, {"a: 1", "B: 2", "b: 3", "new: 9"}},  // nothing is asked
      {"b", DialogButton::Action, {"a: 1", "B: 9", "b: 3"}},
      {"A", DialogButton::Cancel, {"a: 1", "B: 2", "b: 3"}},
      {"A", DialogButton::Alternate, {"a: 1", "B: 2", "b: 3", "A: 9"}},
  };
  for (const auto& row : rows) {
    TemplatesManager::Key = {"a", "B", "b"};
    TemplatesManager::EquationText = {"1", "2", "3"};
    const DialogHandler before = SetDialogHandler([&](const MessageDialog& dialog) {
      EXPECT_EQ(dialog.Message, "A template with this name already exists. Would you like to replace it?");
      EXPECT_EQ(dialog.ActionButton + "/" + dialog.AlternateActionButton, "Replace/Save as New");
      EXPECT_TRUE(dialog.CancelButton);
      return row.answer;
    });
    TemplatesManager::Add(row.name, "9");
    SetDialogHandler(before);
    EXPECT_EQ(Templates(), row.templates) << row.name;
  }
  EXPECT_THROW(TemplatesManager::Remove(4), Fault);
  TemplatesManager::Remove(1);
  EXPECT_EQ(Templates(), (Lines{"a: 1", "b: 3", "A: 9"}));
}

class FakeWindow final : public MyWindowManager::StoredWindow {
 public:
  FakeWindow(const char* key, String text) : key_(key), text_(std::move(text)) {}
  virtual ~FakeWindow() = default;
  void StoreRecord(KeyList& record) const override {
    ++stored_;
    record.AddItem(key_, EncodeURLComponent(text_));
  }
  [[nodiscard]] int Stored() const { return stored_; }

 private:
  mutable int stored_ = 0;
  const char* key_;
  String text_;
};

// Windows in the order in which they were opened.
class Session : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    using MyWindowManager::Record;
    MyWindowManager::RegisterRestorer({"template", [](const Record&) {
                                         opened.emplace_back("chooser");
                                         MsgBox("of the window's own");
                                       }});
    MyWindowManager::RegisterRestorer(
        {"equation", [](const Record& record) {
           const String text = DecodeURLComponent(VariantToString(record.LoadItem("equation", "")));
           opened.push_back(text + "@" + Str(VariantToInt32(record.LoadItem("left", Int32ToVariant(20)))));
         }});
  }

  static std::vector<String> AlertsOfLoad(std::string_view data) {
    const AlertLog alerts;
    opened.clear();
    MyWindowManager::Load(data);
    return alerts.Texts();
  }

  Session() { Preferences::RememberEquations = true; }

  static inline Lines opened;
};

TEST_F(Session, WindowsComeBackFrontLast) {
  const FakeWindow front("equation", "1\n");
  const FakeWindow chooser("template", "True");
  const FakeWindow back("equation", "");
  MyWindowManager::SetWindowList([&] {
    return std::vector<const MyWindowManager::StoredWindow*>{&front, nullptr, &chooser, &back};
  });
  const String stored = MyWindowManager::Store();
  EXPECT_EQ(stored, Bytes({{"0", Bytes({{"equation", "1%0A"}})},
                           {"1", Bytes({})},
                           {"2", Bytes({{"template", "True"}})},
                           {"3", Bytes({{"equation", ""}})}}));
  EXPECT_EQ(front.Stored(), 1) << "encoding a long text is most of a save";
  EXPECT_EQ(AlertsOfLoad(stored).size(), 1u);
  EXPECT_EQ(opened, (Lines{"@20", "chooser", "1\n@20"}));

  Preferences::RememberEquations = false;
  EXPECT_EQ(MyWindowManager::Store(), "");
  EXPECT_TRUE(AlertsOfLoad(stored).empty());
  EXPECT_TRUE(AlertsOfLoad("").empty());
  EXPECT_TRUE(opened.empty());
}

TEST_F(Session, DamagedRecords) {
  const struct {
    String record;
    Lines opened;
    std::vector<String> alerts;
  } rows[] = {
      {Bytes({{"left", "7"}, {"equation", "1%"}}), {"1%@7"}, {}},
      {Bytes({{"left", "7"}, {"text", "1"}}), {}, {}},
      {Bytes({{"equation", "1"}, {"template", ""}}), {"chooser"}, {"of the window's own"}},
      {Bytes({{"left", "x"}, {"equation", "12345"}}).substr(0, 20), {"@0"}, {}},  // the text is cut off
      {Bytes({{"equation", "1"}, {"left", "-70000"}}).substr(0, 20), {"1@20"}, {}},
      {"", {}, UnknownFormats({"0"})},
      {"\x05k", {}, UnknownFormats({"5"})},
  };
  for (const auto& row : rows) {
    const String sound = Bytes({{"equation", "2"}});
    EXPECT_EQ(AlertsOfLoad(Bytes({{"0", sound}, {"1", row.record}})), row.alerts) << row.record;
    Lines expected = row.opened;
    expected.emplace_back("2@20");
    EXPECT_EQ(opened, expected) << row.record;
  }
  // What is wrong with many records is told once, what a window has to tell each time.
  const String chooser = Bytes({{"template", ""}});
  EXPECT_EQ(AlertsOfLoad(Bytes({{"0", ""}, {"1", chooser}, {"2", ""}, {"3", chooser}})).size(), 3u);
  EXPECT_EQ(AlertsOfLoad(""), UnknownFormats({"0"}));
  EXPECT_TRUE(AlertsOfLoad(Bytes({{"0", Bytes({{"name", "<a></a>"}})}})).empty());
  EXPECT_TRUE(opened.empty());
}

}  // namespace
}  // namespace sumlet
