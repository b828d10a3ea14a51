#include "shell/menus.h"

#include <QClipboard>
#include <QMimeData>
#include <fstream>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/ui/file_dialogs.h"
#include "framework/ui/incoming_files.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/text_import.h"
#include "shell/win_about.h"
#include "shell/win_preferences.h"

namespace sumlet {
namespace {

struct AppWithMenus : App {
  AppWithMenus() {
    BindMenuHandlers();
    AppendMenuItems();
  }
};

class Menus : public WindowFixture {
  const HookGuard menus_ = AttachMenus.Set([](Window& window) { MenuBar1().AttachTo(window); });

 protected:
  Menus() {
    static AppWithMenus app;  // the menus exist once in the process, and so do their handlers
  }
  static winSumlet& NewEquation(std::string_view text) {
    const winTemplates::Template equation{"", String(text)};
    App::OpenEquation(&equation);
    return dynamic_cast<winSumlet&>(WindowAt(0));
  }
  // The entries of the Window menu after the fixed ones, the ticked one in brackets.
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

TEST_F(Menus, FrontWindowDecidesWhatIsEnabled) {
  // The items that depend on the front window and are enabled.
  const auto enabled = [] {
    MenuBar1().Update();
    String names;
    for (const char* name : {"FileSaveAsTemplate", "FileCLose", "WindowMinimize", "FullScreen", "EditCopyResult",
                             "EditGoToError", "EditCopyLineValue", "EditCopyWithValues", "FileReopenClosed"})
      if (MenuBar1().Item(name).isEnabled()) names += String(name) + " ";
    return names;
  };
  EXPECT_EQ(enabled(), "");
  NewEquation("1");
  EXPECT_EQ(
      enabled(),
      "FileSaveAsTemplate FileCLose WindowMinimize FullScreen EditCopyResult EditCopyLineValue EditCopyWithValues ");
  NewEquation("(1");
  EXPECT_EQ(enabled(),
            "FileSaveAsTemplate FileCLose WindowMinimize FullScreen EditCopyResult EditGoToError EditCopyWithValues ");
  NewEquation(" \n\t");
  EXPECT_EQ(enabled(), "FileCLose WindowMinimize FullScreen ");
  winPreferences::Instance().Show();
  EXPECT_EQ(enabled(), "FileCLose ");
  EXPECT_FALSE(MenuBar1().Choose("FileExport")) << "no window handles it";
}

TEST_F(Menus, WindowMenuListsOpenWindows) {
  winSumlet& first = NewEquation("\n  x & 2  ");
  EXPECT_EQ(WindowEntries(), "[Sumlet];");
  NewEquation("1234567890123456789012345678901234");
  winSumlet& third = NewEquation(String(33, 'b'));
  // New windows are appended, the front one first. Then the entries keep their order.
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
  // do not act on an equation behind another window, nor on the result
  winAbout::Instance().Show();
  choose({"EditCut"});
  window.Show();
  window.textOutput().setFocus();
  choose({"EditSelectAll", "EditClear"});
  EXPECT_EQ(window.textInput().Text(), "7x=2");
  EXPECT_EQ(window.textOutput().Text(), "2");
}

TEST_F(Menus, ResultCommandsUseTheCurrentText) {
  winSumlet& window = NewEquation("6\n");
  QTest::keyClicks(&window.textInput(), "7*");
  MenuBar1().Choose("EditCopyResult");
  EXPECT_EQ(ClipboardText(), "42") << "calculates before it copies";
  for (const bool shown : {true, false}) {
    MenuBar1().Choose("EditShowLineValues");
    MenuBar1().Update();
    EXPECT_EQ(MenuBar1().Item("EditShowLineValues").isChecked(), shown);
    EXPECT_EQ(window.valueDisplay() != nullptr, shown);
  }
  QTest::keyClicks(&window.textInput(), "1");
  MenuBar1().Choose("EditCopyWithValues");
  EXPECT_EQ(ClipboardText(), "7*16  → 112\n");
  MenuBar1().Choose("EditCopyLineValue");
  clock.Advance(250);
  EXPECT_EQ(window.textInput().accessibleDescription(), "Copied 112") << "not interrupted by another calculation";
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

TEST_F(Menus, ReopensTheLastClosedEquationFirst) {
  MyWindowManager::RegisterRestorer({"equation", winSumlet::RestoreFrom});
  for (const char* text : {"1", " \n", "2"}) {
    winSumlet& window = NewEquation(text);
    window.FromTemplate = text;
    window.SetHeight(300);
    window.Close();
  }
  Preferences::TextSize = 16;
  for (const char* text : {"2", "1"}) {
    MenuBar1().Choose("FileReopenClosed");
    const winSumlet& window = *Front<winSumlet>();
    EXPECT_EQ(window.textInput().Text(), text);
    EXPECT_EQ(window.FromTemplate, text);
    EXPECT_EQ(window.Height(), 300);
    EXPECT_EQ(window.TextSize, 16) << "the current text size";
  }
  Preferences::TextSize = Preferences::defaultTextSize;
}

TEST_F(Menus, KeysReachTheTextAfterAMenu) {
  winSumlet& window = NewEquation("");
  window.Show();
  QCoreApplication::processEvents();
  const auto press = [&window](const char* keys) { QTest::keySequence(window.windowHandle(), QKeySequence(keys)); };
  for (const char* keys : {"Alt+X", "Alt+Shift+5", "Alt+F, Esc", "Alt+F, Down, Right, Esc", "F10, Right, Esc"}) {
    window.textInput().clear();
    press(keys);
    press("1");
    EXPECT_EQ(window.textInput().Text(), "1") << keys;
  }
  press("Alt+F, Down, Right");
  EXPECT_TRUE(MenuBar1().Item("EditSelectAll").isEnabled()) << "acts on the text although the menu has the focus";
  press("Esc");
}

TEST_F(Menus, ImportOpensFilesAndListsFailures) {
  std::vector<FolderItem> files;
  for (const char* name : {"budget.txt.txt", "empty.txt", "gone.txt"})
    files.emplace_back(folder.filePath(name).toStdString());
  std::ofstream(files[0].Path()) << "\n\n # caf\xE9\n\n2*21 \n";
  std::ofstream(files[1].Path()) << " \n";
  const HookGuard chosen = ShowOpenDialog.Set([&files](const OpenDialog&) { return files; });
  String told;
  const HookGuard alert = ShowDialog.Set([&told](const MessageDialog& dialog) {
    told += dialog.Message + "|" + dialog.Explanation;
    return DialogButton::Action;
  });
  MenuBar1().Choose("FileImport");
  EXPECT_EQ(told, "The following items couldn't be opened, or were empty:|empty.txt\ngone.txt");
  EXPECT_EQ(WindowCount(), 1);
  EXPECT_EQ(Front<winSumlet>()->FromTemplate, "budget.txt");
  EXPECT_EQ(Front<winSumlet>()->textInput().Text(), "# café\n\n2*21");
  const FolderItem picture(folder.filePath("dropped.txt.png").toStdString());
  std::ofstream(picture.Path(), std::ios::binary) << "\x89PNG\r\n\x1A\n 1";
  EXPECT_EQ(OpenTextFiles({picture, files[0]}, FileKinds::Text), Array<String>{"dropped.txt.png"});
}

TEST_F(Menus, PastedAndDroppedFilesOpen) {
  String opened;
  const HookGuard opener = OpenFiles.Set([&opened](const std::vector<FolderItem>& files) {
    for (const FolderItem& file : files) opened += file.Path().string() + ";";
  });
  TextArea& area = NewEquation("").textInput();
  AcceptFiles(WindowAt(0));
  // Pastes the data and drops it. Returns the action that the source of the drag is told.
  const auto receive = [&area](const char* type, const char* bytes) {
    auto* data = new QMimeData;
    data->setData(type, bytes);
    QApplication::clipboard()->setMimeData(data);
    area.paste();
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter({}, offered, data, Qt::LeftButton, {});
    QDropEvent drop({}, offered, data, Qt::LeftButton, {});
    for (QDropEvent* event : {static_cast<QDropEvent*>(&enter), &drop}) QApplication::sendEvent(area.viewport(), event);
    QCoreApplication::processEvents();
    return drop.dropAction();
  };
  EXPECT_EQ(receive("text/uri-list", "file:///a%20b\r\nfile:///caf%E9\r\n"), Qt::CopyAction) << "never a move";
  EXPECT_EQ(opened, "/a b;/caf\xE9;/a b;/caf\xE9;") << "pasted and dropped";
  receive("text/plain", "2+");
  receive("text/uri-list", "https://sumlet.example/");
  EXPECT_EQ(area.Text(), "2+https://sumlet.example/2+") << "a link can be pasted but not dropped";
}

TEST_F(Menus, ExportReportsFailure) {
  const HookGuard dialog = ShowSaveAsDialog.Set([this](const SaveAsDialog& asked, Window&) {
    return FolderItem(folder.filePath("none").toStdString()).Child(asked.SuggestedFileName);
  });
  String told;
  const HookGuard alerts = MsgBox.Set([&told](std::string_view text) { told = text; });
  winSumlet& window = NewEquation("1");
  window.FromTemplate = "budget";
  MenuBar1().Choose("FileExport");
  EXPECT_TRUE(told.starts_with("The equation could not be exported to \"budget.txt\": ")) << told;
}

}  // namespace
}  // namespace sumlet
