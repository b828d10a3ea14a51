#include "shell/menus.h"

#include <fstream>

#include "equationwindow/win_sumlet.h"
#include "framework/clipboard.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/win_about.h"
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
  static winSumlet& NewEquation(std::string_view text) {
    const winTemplates::Template equation{"", String(text)};
    App::OpenEquation(&equation);
    return dynamic_cast<winSumlet&>(WindowAt(0));
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
  // The items that the enabling pass decides on and has enabled.
  const auto enabled = [] {
    MenuBar1().Update();
    String names;
    for (const char* name : {"FileSaveAsTemplate", "FileCLose", "WindowMinimize", "FullScreen", "EditCopyResult",
                             "EditGoToError", "FileReopenClosed"})
      if (MenuBar1().Item(name).isEnabled()) names += String(name) + " ";
    return names;
  };
  EXPECT_EQ(enabled(), "");
  NewEquation("1");
  EXPECT_EQ(enabled(), "FileSaveAsTemplate FileCLose WindowMinimize FullScreen EditCopyResult ");
  NewEquation("(1");
  EXPECT_EQ(enabled(), "FileSaveAsTemplate FileCLose WindowMinimize FullScreen EditCopyResult EditGoToError ");
  NewEquation(" \n\t");
  EXPECT_EQ(enabled(), "FileCLose WindowMinimize FullScreen ");
  winPreferences::Instance().Show();
  EXPECT_EQ(enabled(), "FileCLose ");
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
  const auto choose = [](std::initializer_list<const char*> names) {
    QCoreApplication::processEvents();
    for (const char* name : names) MenuBar1().Choose(name);
  };
  window.activateWindow();
  QTest::keyClicks(&window.textInput(), "7");
  choose({"EditSelectAll", "EditCut"});
  EXPECT_EQ(window.textInput().Text(), "");
  choose({"EditPaste", "EditUndo", "EditUndo", "EditRedo", "EditUndo", "EditSelectAll"});
  EXPECT_EQ(window.textInput().Text(), "7x=2");
  QTest::keyClick(&window.textInput(), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(window.textInput().Text(), "");
  choose({"EditUndo"});
  // neither an equation behind another window nor the result's area
  winAbout::Instance().Show();
  choose({"EditCut"});
  window.Show();
  window.textOutput().setFocus();
  choose({"EditSelectAll", "EditClear"});
  EXPECT_EQ(window.textInput().Text() + " is " + window.textOutput().Text(), "7x=2 is 2");
}

TEST_F(Menus, CommandsAboutTheResultFollowTheTextAsItIs) {
  winSumlet& window = NewEquation("6\n");
  QTest::keyClicks(&window.textInput(), "7*");
  MenuBar1().Choose("EditCopyResult");
  EXPECT_EQ(ClipboardText(), "42") << "though its calculation was still to come";
  window.SetEquation("", "1\nfoo\n" + String(100, '\n'));
  window.textInput().moveCursor(QTextCursor::End);
  window.textOutput().setFocus();
  QCoreApplication::processEvents();
  QTest::mouseDClick(window.textOutput().viewport(), Qt::LeftButton);
  QTest::keyClick(&window.textInput(), Qt::Key_B);
  MenuBar1().Choose("EditGoToError");
  EXPECT_EQ(window.textInput().textCursor().position(), 6);
  EXPECT_TRUE(window.textInput().rect().intersects(window.textInput().cursorRect()));
  EXPECT_EQ(QApplication::focusWidget(), &window.textInput());
  EXPECT_EQ(window.textOutput().Text(), "\"foob\" Error: Variable Unknown");
}

TEST_F(Menus, ClosedEquationsComeBackTheLatestFirst) {
  MyWindowManager::RegisterRestorer({"equation", winSumlet::RestoreFrom});
  for (const char* name : {"one", "two", ""}) {
    NewEquation(name).FromTemplate = name;
    WindowAt(0).SetLeft(Len(name) + 40);
    WindowAt(0).SetHeight(300);
    if (String(name) == "one") NewEquation(" \n");
  }
  while (WindowCount() > 0) WindowAt(0).Close();
  Preferences::TextSize = 16;
  for (const char* name : {"one", "two"}) {
    MenuBar1().Choose("FileReopenClosed");
    const winSumlet& window = dynamic_cast<winSumlet&>(WindowAt(0));
    EXPECT_EQ(window.FromTemplate + window.textInput().Text(), String(name) + name);
    EXPECT_EQ(QRect(window.Left(), 0, window.TextSize, window.Height()), QRect(43, 0, 16, 300));
  }
  Preferences::TextSize = Preferences::defaultTextSize;
}

TEST_F(Menus, FilesComeInAndFailuresAreNamedOnce) {
  std::vector<FolderItem> files;
  const std::pair<const char*, std::string> contents[] = {{"budget.txt", "\n\n 1+1\n\n2*\u00A021 \n"},
                                                          {"empty.txt", " \n"},
                                                          {"utf16.TXT", {"\xFF\xFE\x31\x00+\x00\x32\x00", 8}},
                                                          {"latin.txt.txt", "# caf\xE9 \x80\n3"}};
  for (const auto& [name, content] : contents) {
    files.emplace_back(folder.filePath(name).toStdString());
    std::ofstream(files.back().Path(), std::ios::binary) << content;
  }
  files.emplace_back(folder.filePath("gone.txt").toStdString());
  SetFileDialogs({[&files](const OpenDialog&) { return files; }, {}});
  String told, opened;
  SetDialogHandler([&told](const MessageDialog& dialog) {
    told += dialog.Message + "|" + dialog.Explanation;
    return DialogButton::Action;
  });
  MenuBar1().Choose("FileImport");
  EXPECT_EQ(told, "The following items couldn't be opened, or were empty:|empty.txt\ngone.txt");
  while (const auto* window = Front<winSumlet>()) {
    opened += window->FromTemplate + ":" + window->textInput().Text() + ";";
    WindowAt(0).Close();
  }
  EXPECT_EQ(opened, "latin.txt:# café €\n3;utf16:1+2;budget:1+1\n\n2*\u00A021;");
}

TEST_F(Menus, ExportTellsOfAFailure) {
  SetFileDialogs({{}, [this](const SaveAsDialog& dialog, Window&) {
                    return FolderItem(folder.filePath("none").toStdString()).Child(dialog.SuggestedFileName);
                  }});
  String told;
  SetMessageHandler([&told](std::string_view text) { told = text; });
  winSumlet& window = NewEquation("1");
  for (const char* name : {"Untitled Equation", "budget"}) {
    MenuBar1().Choose("FileExport");
    EXPECT_TRUE(told.starts_with("The equation could not be exported to \"" + String(name) + ".txt\": ")) << told;
    window.FromTemplate = "budget";
  }
}

}  // namespace
}  // namespace sumlet
