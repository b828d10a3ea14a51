#include "shell/menus.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>

#include "equationwindow/win_sumlet.h"
#include "framework/message.h"
#include "framework/show_url.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/manual_clock.h"
#include "shell/app.h"
#include "shell/text_import.h"
#include "shell/win_about.h"
#include "shell/win_help.h"
#include "shell/win_preferences.h"

namespace sumlet {
namespace {

class Menus : public testing::Test {
 protected:
  Menus() {
    static App app;  // the menus are made once for the whole run, and so is what they are bound to
    static const bool bound = [] {
      app.BindMenuHandlers();
      app.AppendMenuItems();
      SetMenuAttacher([](Window& window) { MenuBar1().AttachTo(window); });
      return true;
    }();
    EXPECT_TRUE(bound);
  }
  ~Menus() override {
    SetFileDialogs({});
    while (WindowCount() > 0) WindowAt(0).Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  static winSumlet& NewEquation(std::string_view text) {
    auto* window = new winSumlet;
    window->Loading = true;
    window->textInput().SetText(text);
    window->Loading = false;
    window->Calculate();
    return *window;
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
      entries += actions[i]->isChecked() ? "[" + text + "]" : text;
      entries += ";";
    }
    return entries;
  }

  ManualClock clock;
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
  EXPECT_TRUE(MenuBar1().Choose("FileCLose"));
  EXPECT_EQ(Enabled(), "FileCLose WindowMinimize WindowBringAlltoFront ") << "the help window is in front again";
  EXPECT_FALSE(MenuBar1().Choose("FileExport")) << "no handler in reach";
}

TEST_F(Menus, TheWindowMenuListsWhatIsOpen) {
  EXPECT_EQ(WindowEntries(), "");
  winSumlet& first = NewEquation("\n  x = 2  ");
  EXPECT_EQ(WindowEntries(), "[Sumlet];");
  NewEquation("1234567890123456789012345678901234");
  winSumlet& third = NewEquation("");
  // The list begins with the windows front to back and then keeps its order.
  EXPECT_EQ(WindowEntries(), "Sumlet (x = 2);[Sumlet];Sumlet (123456789012345678901234567890\u2026);");
  first.Show();
  EXPECT_EQ(WindowEntries(), "[Sumlet (x = 2)];Sumlet;Sumlet (123456789012345678901234567890\u2026);");
  MenuBar1().Choose("WindowBringAlltoFront");
  EXPECT_EQ(&WindowAt(0), &first);
  EXPECT_EQ(&WindowAt(1), &third);
  third.Close();
  EXPECT_EQ(WindowEntries(), "[Sumlet (x = 2)];Sumlet (123456789012345678901234567890\u2026);");
  third.Close();
}

TEST_F(Menus, AFirstLineOf33CharactersStandsWhole) {
  NewEquation("1");
  NewEquation("a & " + String(29, 'b'));
  EXPECT_EQ(WindowEntries(), "[Sumlet (a && " + String(29, 'b') + ")];Sumlet (1);");
}

TEST_F(Menus, EditItemsActOnTheTextWithTheFocus) {
  winSumlet& window = NewEquation("x=2");
  window.activateWindow();
  window.textInput().setFocus();
  QCoreApplication::processEvents();
  QTest::keyClicks(&window.textInput(), "7");
  MenuBar1().Choose("EditSelectAll");
  MenuBar1().Choose("EditCut");
  EXPECT_EQ(window.textInput().Text(), "");
  MenuBar1().Choose("EditPaste");
  EXPECT_EQ(window.textInput().Text(), "7x=2");
  MenuBar1().Choose("EditUndo");
  MenuBar1().Choose("EditUndo");
  EXPECT_EQ(window.textInput().Text(), "7x=2");
  // neither the result's area nor an equation behind another window
  window.textInput().selectAll();
  winAbout::Instance().Show();
  QCoreApplication::processEvents();
  MenuBar1().Choose("EditCut");
  EXPECT_EQ(window.textInput().Text(), "7x=2");
  window.Show();
  window.textOutput().setFocus();
  QCoreApplication::processEvents();
  MenuBar1().Choose("EditClear");
  EXPECT_EQ(window.textInput().Text(), "7x=2");
}

TEST_F(Menus, WebItemsHandOverEncodedAddresses) {
  std::vector<String> addresses;
  const URLHandler before = SetURLHandler([&](std::string_view address) { addresses.emplace_back(address); });
  for (const char* name : {"Website", "Feedback", "Share"}) MenuBar1().Choose(name);
  SetURLHandler(before);
  EXPECT_EQ(addresses, (std::vector<String>{
                           "https://www.sumlet.example/sumlet.html",
                           "https://www.sumlet.example/contact.html?s=Sumlet",
                           "https://share.sumlet.example/sharer.php?u=https%3A%2F%2Fwww.sumlet.example%2Fsumlet%2F",
                       }));
}

TEST_F(Menus, FilesComeInAndFailuresAreNamedOnce) {
  const QTemporaryDir folder;
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
  const DialogHandler before = SetDialogHandler([&told](const MessageDialog& dialog) {
    told.push_back(dialog.Message + "|" + dialog.Explanation);
    return DialogButton::Action;
  });
  MenuBar1().Choose("FileImport");
  SetDialogHandler(before);
  EXPECT_EQ(told, (std::vector<String>{"The following items couldn't be opened, or were empty:|empty.txt\ngone.txt"}));
  ASSERT_EQ(WindowCount(), 3);
  const struct {
    const char* name;
    const char* text;
  } rows[] = {{"latin.txt", "# café €\n3"}, {"utf16", "1+2"}, {"budget", "1+1\n\n2*\u00A021"}};
  for (Int32 i = 0; i < 3; ++i) {
    const auto& window = dynamic_cast<winSumlet&>(WindowAt(i));
    EXPECT_EQ(window.FromTemplate, rows[i].name);
    EXPECT_EQ(window.textInput().Text(), rows[i].text);
  }
}

TEST_F(Menus, ExportWritesTheTextAsItStands) {
  const QTemporaryDir folder;
  const FolderItem file = FolderItem(folder.path().toStdString()).Child("out.txt");
  winSumlet& window = NewEquation("");
  String suggested;
  std::optional<FolderItem> answer = file;
  SetFileDialogs({{}, [&](const SaveAsDialog& dialog, Window&) {
                    suggested = dialog.SuggestedFileName;
                    return answer;
                  }});
  for (const char* text : {"", "x=2\n\u00A0 𝜋 x\n", "# note"}) {
    window.textInput().SetText(text);
    EXPECT_TRUE(MenuBar1().Choose("FileExport"));
    EXPECT_EQ(file.ReadBinaryFile(), text);
  }
  EXPECT_EQ(suggested, "Untitled Equation.txt");
  window.FromTemplate = "budget";
  answer = FolderItem(folder.path().toStdString()).Child("no such folder").Child("x.txt");
  String alert;
  const MessageHandler before = SetMessageHandler([&alert](std::string_view text) { alert = text; });
  MenuBar1().Choose("FileExport");
  SetMessageHandler(before);
  EXPECT_EQ(suggested, "budget.txt");
  EXPECT_TRUE(alert.starts_with("The equation could not be exported to \"x.txt\": ")) << alert;
  EXPECT_EQ(window.textInput().Text(), "# note");
}

TEST_F(Menus, FullScreenKeepsTheWindowedBounds) {
  winSumlet& window = NewEquation("1");
  window.SetWidth(400);
  window.SetHeight(300);
  window.SetLeft(30);
  window.SetTop(40);
  QCoreApplication::processEvents();
  EXPECT_EQ(window.NonFullscreenWidth, 0);
  MenuBar1().Choose("FullScreen");
  QCoreApplication::processEvents();
  ASSERT_TRUE(window.IsFullScreen());
  MenuBar1().Update();
  EXPECT_EQ(MenuBar1().Item("FullScreen").text(), "Exit Full Screen");
  EXPECT_EQ(window.NonFullscreenWidth, 400);
  EXPECT_EQ(window.NonFullscreenHeight, 300);
  EXPECT_EQ(window.NonFullscreenLeft, 30);
  MenuBar1().Choose("FullScreen");
  QCoreApplication::processEvents();
  EXPECT_FALSE(window.IsFullScreen());
  EXPECT_EQ(window.Width(), 400);
}

}  // namespace
}  // namespace sumlet
