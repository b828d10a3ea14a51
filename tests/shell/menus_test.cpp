#include "shell/menus.h"

#include <fstream>

#include "equationwindow/win_sumlet.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/window_fixture.h"
#include "shell/app.h"
#include "shell/text_import.h"
#include "shell/win_about.h"
#include "shell/win_help.h"
#include "shell/win_preferences.h"

namespace sumlet {
namespace {

class Menus : public WindowFixture {
 protected:
  Menus() {
    SetMenuAttacher([](Window& window) { MenuBar1().AttachTo(window); });
    static App app;  // the menus are made once for the whole run, and so is what they are bound to
    static const bool bound = (app.BindMenuHandlers(), app.AppendMenuItems(), true);
    EXPECT_TRUE(bound);
  }
  void TearDown() override {
    SetFileDialogs({});
    WindowFixture::TearDown();
  }
  static winSumlet& NewEquation(std::string_view text) {
    const winTemplates::Template equation{"", String(text)};
    App::OpenEquation(&equation);
    return dynamic_cast<winSumlet&>(WindowAt(0));
  }
  // The names of the items that the enabling pass decides on and has enabled.
  static String Enabled() {
    MenuBar1().Update();
    String names;
    for (const char* name :
         {"FileSaveAsTemplate", "FileCLose", "WindowMinimize", "WindowBringAlltoFront", "FullScreen"})
      if (MenuBar1().Item(name).isEnabled()) names += String(name) + " ";
    return names;
  }
  // The entries of the Window menu behind the fixed ones, the ticked one in brackets.
  static String WindowEntries() {
    MenuBar1().Update();
    String entries;
    const auto actions = MenuBar1().Menu("WindowMenu").actions();
    for (qsizetype i = 3; i < actions.size(); ++i) {
      const String text = actions[i]->text().toStdString();
      entries += (actions[i]->isChecked() ? "[" + text + "]" : text) + ";";
    }
    return entries;
  }
};

TEST_F(Menus, WhatIsEnabledDependsOnTheFrontWindow) {
  EXPECT_EQ(Enabled(), "");
  NewEquation(" \n\t");
  EXPECT_EQ(Enabled(), "FileCLose WindowMinimize WindowBringAlltoFront FullScreen ");
  NewEquation("1");
  EXPECT_EQ(Enabled(), "FileSaveAsTemplate FileCLose WindowMinimize WindowBringAlltoFront FullScreen ");
  winHelp::Instance().Show();
  EXPECT_EQ(Enabled(), "FileCLose WindowMinimize WindowBringAlltoFront ");
  winPreferences::Instance().Show();
  EXPECT_EQ(Enabled(), "FileCLose WindowBringAlltoFront ");
  EXPECT_FALSE(MenuBar1().Choose("FileExport")) << "no handler in reach";
}

TEST_F(Menus, TheWindowMenuListsWhatIsOpen) {
  winSumlet& first = NewEquation("\n  x & 2  ");
  EXPECT_EQ(WindowEntries(), "[Sumlet];");
  NewEquation("1234567890123456789012345678901234");
  winSumlet& third = NewEquation(String(33, 'b'));
  // The list begins with the windows front to back and then keeps its order.
  const String others = "Sumlet (123456789012345678901234567890\u2026);";
  const String whole = "Sumlet (" + String(33, 'b') + ")";
  EXPECT_EQ(WindowEntries(), "Sumlet (x && 2);[" + whole + "];" + others);
  first.Show();
  EXPECT_EQ(WindowEntries(), "[Sumlet (x && 2)];" + whole + ";" + others);
  MenuBar1().Choose("WindowBringAlltoFront");
  EXPECT_EQ(&WindowAt(0), &first);
  EXPECT_EQ(&WindowAt(1), &third);
  third.Close();
  EXPECT_EQ(WindowEntries(), "[Sumlet (x && 2)];" + others);
}

TEST_F(Menus, EditItemsActOnTheTextWithTheFocus) {
  winSumlet& window = NewEquation("x=2");
  window.activateWindow();
  window.textInput().setFocus();
  QCoreApplication::processEvents();
  QTest::keyClicks(&window.textInput(), "7");
  for (const char* name : {"EditSelectAll", "EditCut"}) MenuBar1().Choose(name);
  EXPECT_EQ(window.textInput().Text(), "");
  for (const char* name : {"EditPaste", "EditUndo", "EditUndo"}) MenuBar1().Choose(name);
  EXPECT_EQ(window.textInput().Text(), "7x=2");
  // neither the result's area nor an equation behind another window
  window.textInput().selectAll();
  winAbout::Instance().Show();
  QCoreApplication::processEvents();
  MenuBar1().Choose("EditCut");
  window.Show();
  window.textOutput().setFocus();
  window.textOutput().selectAll();
  QCoreApplication::processEvents();
  MenuBar1().Choose("EditClear");
  EXPECT_EQ(window.textOutput().Text(), "2");
  EXPECT_EQ(window.textInput().Text(), "7x=2");
}

TEST_F(Menus, FilesComeInAndFailuresAreNamedOnce) {
  const std::filesystem::path path = folder.path().toStdString();
  const auto write = [&path](const char* name, std::string_view content) {
    std::ofstream(path / name, std::ios::binary) << content;
    return FolderItem(path / name);
  };
  const std::vector<FolderItem> files = {write("budget.txt", "\n\n 1+1\n\n2*\u00A021 \n"), write("empty.txt", " \n"),
                                         write("utf16.TXT", std::string_view("\xFF\xFE\x31\x00+\x00\x32\x00", 8)),
                                         write("latin.txt.txt", "# caf\xE9 \x80\n3"), FolderItem(path / "gone.txt")};
  SetFileDialogs({[&files](const OpenDialog&) { return files; }, {}});
  std::vector<String> told;
  SetDialogHandler([&told](const MessageDialog& dialog) {
    told.push_back(dialog.Message + "|" + dialog.Explanation);
    return DialogButton::Action;
  });
  MenuBar1().Choose("FileImport");
  EXPECT_EQ(told, (std::vector<String>{"The following items couldn't be opened, or were empty:|empty.txt\ngone.txt"}));
  String opened;
  for (Int32 i = 0; i < WindowCount(); ++i) {
    const auto& window = dynamic_cast<winSumlet&>(WindowAt(i));
    opened += window.FromTemplate + ":" + window.textInput().Text() + ";";
  }
  EXPECT_EQ(opened, "latin.txt:# café €\n3;utf16:1+2;budget:1+1\n\n2*\u00A021;");
}

TEST_F(Menus, ExportTellsOfAFailure) {
  winSumlet& window = NewEquation("1");
  String suggested, alert;
  SetFileDialogs({{}, [&](const SaveAsDialog& dialog, Window&) {
                    suggested += dialog.SuggestedFileName + ";";
                    return FolderItem(folder.path().toStdString()).Child("no such folder").Child("x.txt");
                  }});
  SetMessageHandler([&alert](std::string_view text) { alert = text; });
  for (const char* name : {"", "budget"}) {
    window.FromTemplate = name;
    EXPECT_TRUE(MenuBar1().Choose("FileExport"));
  }
  EXPECT_EQ(suggested, "Untitled Equation.txt;budget.txt;");
  EXPECT_TRUE(alert.starts_with("The equation could not be exported to \"x.txt\": ")) << alert;
}

}  // namespace
}  // namespace sumlet
