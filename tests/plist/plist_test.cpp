// Reads, writes and converts whole files.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <tuple>

#include "framework/file/program.h"
#include "plist/plist.h"
#include "temporary_folder.h"
#include "tree_text.h"

namespace sumlet {
namespace {

namespace fs = std::filesystem;

const String newHeaders =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n<dict>\n";

// A folder for the test, which also contains its temporary files.
class PropertyListFile : public testing::Test {
 protected:
  PropertyListFile() {
    fs::create_directory(temporary_);
    setenv("TMPDIR", temporary_.c_str(), 1);
  }
  ~PropertyListFile() override {
    setenv("PATH", path_.c_str(), 1);
    unsetenv("TMPDIR");
  }

  [[nodiscard]] FolderItem File(const String& name, std::string_view content) const {
    std::ofstream(folder_ / name, std::ios::binary) << content;
    return FolderItem(folder_ / name);
  }
  [[nodiscard]] static String Content(const FolderItem& file) { return file.ReadBinaryFile().value_or("nothing"); }

  // Installs a tool in front of all others in PATH; `script` gets the tool's arguments.
  void Install(const char* tool, const char* script) const {
    fs::create_directory(folder_ / "bin");
    const FolderItem file = File(String("bin/") + tool, String("#!/bin/sh\n") + script + "\n");
    fs::permissions(file.Path(), fs::perms::owner_all);
    setenv("PATH", ((folder_ / "bin").string() + ":/usr/bin:/bin").c_str(), 1);
  }

  const String path_ = getenv("PATH");
  const TemporaryFolder all_;
  const fs::path folder_ = all_.Path();
  const fs::path temporary_ = folder_ / "temporary";
};

TEST_F(PropertyListFile, Contents) {
  const String body = "<key>a</key>\n<true/>\n</dict>\n</plist>\n";
  const char* const no = "Not a plist file";
  const std::tuple<String, const char*, const char*, Int32> rows[] = {
      {newHeaders + body, "", "a:boolean=true", 4},
      {"\xEF\xBB\xBF<?xml?>\r\n\r\n<DICT>\r\n" + body, "", "a:boolean=true", 3},
      {"<dict>\n" + body, "", ":/plist{a:boolean=true}", 0},
      {"<plist>\n<array>\n<dict>\n" + body, "", "a:boolean=true", 3},
      {"<plist>\n <dict>\n" + body, no, "", 6},
      {"", no, "", 0},
      {String(3000000, 'x'), no, "", 1},
  };
  for (const auto& [content, error, tree, headers] : rows) {
    const plist document(File("list", content));
    EXPECT_EQ(document.errorMessage, error) << content.substr(0, 80);
    EXPECT_EQ(TreeText(document.root()), tree) << content.substr(0, 80);
    EXPECT_EQ(document.headers.Ubound(), headers) << content.substr(0, 80);
  }
}

TEST_F(PropertyListFile, Places) {
  const FolderItem missing(folder_ / "missing");
  plist none(missing);
  EXPECT_EQ(none.errorMessage, missing.AbsolutePath() + " does not exist");
  none.Save();
  EXPECT_EQ(Content(missing), newHeaders + "</dict>\n</plist>\n");

  missing.Delete();
  plist fallback(missing, File("other", newHeaders + "<key>a</key>\n<true/>\n</dict>\n"));
  EXPECT_EQ(TreeText(fallback.root()), "a:boolean=true");
  fallback.Save();
  EXPECT_EQ(TreeText(plist(missing).root()), "a:boolean=true");

  none.savePath = FolderItem(folder_ / "no/such/folder");
  none.Save(true);
  EXPECT_EQ(none.errorMessage, "Could not open file for saving");

  // does not overwrite a file that it could not read
  const FolderItem large = File("large", newHeaders + String(9000000, 'x'));
  plist unread(large);
  unread.Save();
  EXPECT_EQ(unread.errorMessage, "Could not open file for saving");
  EXPECT_EQ(fs::file_size(large.Path()), newHeaders.size() + 9000000);
}

TEST_F(PropertyListFile, Writing) {
  plist document(FolderItem(folder_ / "list"));
  plistDict& root = document.root();
  root.SetString("s", "a<b> & \"c\"");
  root.AddArray("a");
  root.child("a").AppendDouble(0.5);
  root.child("a").AppendDict();
  root.child("a").AppendBoolean(false);
  root.child("d").SetData("x", "AA==");
  const String body =
      "\t<key>s</key>\n\t<string>a&lt;b&gt; & \"c\"</string>\n"
      "\t<key>a</key>\n\t<array>\n\t\t<double>0.5</double>\n\t\t<dict/>\n\t\t<false/>\n\t</array>\n"
      "\t<key>d</key>\n\t<dict>\n\t\t<key>x</key>\n\t\t<data>\n\t\tAA==\n\t\t</data>\n\t</dict>\n";
  document.Save();
  EXPECT_EQ(Content(document.savePath), newHeaders + body + "</dict>\n</plist>\n");
}

TEST_F(PropertyListFile, Searching) {
  plist document(FolderItem(folder_ / "list"));
  document.root().SetString("s", "one");
  document.root().child("d").SetString("t", "One more");
  EXPECT_TRUE(document.Find("ONE"));
  EXPECT_EQ(document.foundKey + ":" + document.foundType + "=" + document.foundValue, "s:string=one");
  EXPECT_TRUE(document.FindNext("one"));
  EXPECT_EQ(document.foundDict->AbsolutePath(), ":root:d");
  EXPECT_FALSE(document.FindNext("one"));
  EXPECT_TRUE(document.FindNext("e"));  // another word
  EXPECT_EQ(document.foundKey, "s");
  EXPECT_TRUE(document.Find("more"));
  document.root().Remove("d");
  EXPECT_EQ(document.foundDict, nullptr);
}

TEST_F(PropertyListFile, BinaryByTheRealTool) {
  if (RunProgram({"plistutil", "-v"}, std::chrono::seconds(10)) == ProgramEnd::NotFound) GTEST_SKIP() << "no plistutil";
  const FolderItem file = File("list", newHeaders + "<key>RunCount</key>\n<integer>4</integer>\n</dict>\n</plist>\n");
  const String path = file.Path().string();
  RunProgram({"plistutil", "-i", path, "-o", path, "-f", "bin"}, std::chrono::seconds(10));
  const String before = Content(file);
  plist document(file);
  EXPECT_EQ(TreeText(document.root()), "RunCount:integer=4");
  EXPECT_EQ(Content(file), before);

  document.root().SetInteger("RunCount", 5);
  document.Save(true);
  EXPECT_EQ(Content(file).substr(0, 6), "bplist");
  EXPECT_EQ(plist(file).root().GetInteger("RunCount"), 5);
  document.Save();
  document.Load(file, {});
  EXPECT_TRUE(fs::is_empty(temporary_)) << "the copy of the first reading";

  // another user has taken the path of the temporary copy
  plist again(file);
  const fs::path stolen = again.savePath.Path().parent_path();
  fs::create_directory(folder_ / "victim");
  fs::permissions(folder_ / "victim", fs::perms::owner_all);
  fs::create_directory_symlink(folder_ / "victim", stolen);
  again.Save();
  EXPECT_EQ(again.errorMessage, "Could not open file for saving");
  EXPECT_TRUE(fs::is_empty(folder_ / "victim"));
  fs::remove(stolen);
}

// If a tool fails in any way, the file does not change and no temporary file remains.
TEST_F(PropertyListFile, BinaryByFailingTools) {
  const FolderItem file = File("a file; $(touch x) 'y'", "bplist00 and more");
  for (const char* script : {"kill -9 $$", "echo '<plist>' >\"$3\"", "rm \"$3\"; echo x >\"$3.other\""}) {
    Install("plutil", script);
    EXPECT_EQ(plist(file).errorMessage, "Not a plist file") << script;
    EXPECT_EQ(Content(file), "bplist00 and more") << script;
    EXPECT_TRUE(fs::is_empty(temporary_)) << script;
  }
  plist unread(file);
  unread.Save();
  EXPECT_EQ(Content(file), "bplist00 and more") << "saved although it could not be read";
}

// Other users cannot look into the folder of the copy.
TEST_F(PropertyListFile, BinaryByAToolThatReportsAFailure) {
  Install("plutil",
          "test \"$1 $2\" = '-convert xml1' && test \"$(stat -c %a \"$(dirname \"$3\")\")\" = 700 && "
          "printf '<plist>\n<dict>\n' >\"$3\"; exit 1");
  EXPECT_EQ(plist(File("list", "bplist00")).errorMessage, "");
}

TEST_F(PropertyListFile, HangingProgramsAreGivenUp) {
  Install("slow", "sleep 60 & sleep 60");
  EXPECT_EQ(RunProgram({"slow"}, std::chrono::milliseconds(50)), ProgramEnd::GivenUp);
  EXPECT_EQ(RunProgram({}, std::chrono::seconds(10)), ProgramEnd::NotFound);
}

}  // namespace
}  // namespace sumlet
