// The chooser of templates and the sheet that asks for a name.
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "framework/desktop.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "templates/name_provider_dialog.h"
#include "templates/templates_manager.h"
#include "templates/win_save.h"
#include "templates/win_templates.h"

namespace sumlet {
namespace {

struct Owner final : Window {
  Owner() { Create(); }
  void Layout() override {}
  std::optional<NameProviderDialog> dialog{std::in_place};
};

class NamePrompt : public WindowFixture {
 protected:
  NamePrompt() {
    owner->dialog->Prompt = "What name?";
    owner->dialog->Text = "old";
    owner->dialog->Saved = [this](NameProviderDialog& sender) {
      log += "Saved " + sender.Text + (Front<winSave>()->isVisible() ? ", sheet up;" : ", sheet down;");
    };
    owner->dialog->Canceled = [this](NameProviderDialog& sender) { log += "Canceled " + sender.Text + ";"; };
    owner->dialog->ShowWithin(*owner);
    QCoreApplication::processEvents();
  }

  String log;
  QPointer<Owner> owner = new Owner;
  HookGuard alerts = MsgBox.Set([this](std::string_view text) { log += "[" + String(text) + "]"; });
};

TEST_F(NamePrompt, Answers) {
  EXPECT_EQ(Front<winSave>()->textName().selectedText(), "old");
  // the text that the user types, the user's answer, and what the dialog reports
  const std::tuple<const char*, void (*)(winSave&), const char*> rows[] = {
      {" new\t ", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Return); }, "Saved new, sheet up;"},
      {"new", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Escape); }, "Canceled old;"},
      {"new", [](winSave& s) { QTest::keyClick(&s.btnCancel(), Qt::Key_Return); }, "Canceled old;"},
      {" \t ", [](winSave& s) { s.btnSave().click(); }, "[Text can not be empty.]"},
  };
  for (const auto& [typed, answer, reported] : rows) {
    owner->dialog->Text = "old";
    for (int i = 0; i < 2; ++i) owner->dialog->ShowWithin(*owner);
    EXPECT_EQ(WindowCount(), 2) << "one sheet at a time";
    winSave& sheet = *Front<winSave>();
    sheet.textName().setText(typed);
    answer(sheet);
    EXPECT_EQ(std::exchange(log, {}), reported);
    EXPECT_EQ(sheet.isVisible(), String(reported).starts_with("[")) << reported;
  }
}

TEST_F(NamePrompt, ClosesWithItsWindowOrItsDialog) {
  owner->Close(true);
  EXPECT_EQ(log, "Canceled old;");
  EXPECT_EQ(WindowCount(), 0);
  auto& other = *new Owner;
  other.dialog->Canceled = [this](NameProviderDialog&) { log += "after the end"; };
  other.dialog->ShowWithin(other);
  other.dialog.reset();
  EXPECT_EQ(WindowCount(), 1);
  EXPECT_EQ(log, "Canceled old;");
}

// The program ends while the handler asks a question: window, dialog and sheet are gone when the handler returns.
TEST_F(NamePrompt, SurvivesTheEndInsideItsHandler) {
  owner->dialog->Saved = [this](NameProviderDialog&) {
    delete owner.data();
    log = "returned";
  };
  Front<winSave>()->btnSave().click();
  EXPECT_EQ(log, "returned");
  EXPECT_EQ(WindowCount(), 0);
}

class WinTemplates : public WindowFixture {
 protected:
  WinTemplates() {
    TemplatesManager::Key = {"one", "two", "three"};
    TemplatesManager::EquationText = {"1", "2\r\n2", "3"};
    Preferences::TemplatesOpen = false;
    openEquation = winTemplates::OpenEquation.Set([this](const winTemplates::Template* chosen) {
      opened = chosen ? chosen->Name + "=" + chosen->Text : "empty";
      EXPECT_FALSE(chooser->isVisible());
      EXPECT_TRUE(Preferences::TemplatesOpen) << "hidden, and not yet closed";
    });
    Open();
  }
  void Open() {
    chooser = &winTemplates::Instance();  // a new one, where the last is closing
    chooser->activateWindow();
    QCoreApplication::processEvents();
  }
  // The names of the templates and the captions of the enabled edit buttons.
  [[nodiscard]] std::string State() const {
    std::string state;
    for (const String& key : TemplatesManager::Key) state += key + " ";
    for (const PushButton* button : {&chooser->btnEdit(), &chooser->btnRename(), &chooser->btnDelete()})
      if (button->isVisible() && button->isEnabled()) state += "[" + button->text().toStdString() + "]";
    return state;
  }

  HookGuard openEquation;
  std::string opened;
  QPointer<winTemplates> chooser;
};

TEST_F(WinTemplates, OpensTheChosenAndCloses) {
  const std::tuple<Int32, void (*)(winTemplates&), const char*> rows[] = {
      {0, [](winTemplates& w) { w.btnOK().click(); }, "empty"},
      {2, [](winTemplates& w) { QTest::keyClick(&w.list(), Qt::Key_Return); }, "two=2\n2"},
      {3, [](winTemplates& w) { w.list().DoubleClick(w.list()); }, "three=3"},
      {1, [](winTemplates& w) { QTest::keyClick(&w.list(), Qt::Key_Escape); }, ""},
  };
  for (const auto& [row, step, expected] : rows) {
    Open();
    chooser->list().SetListIndex(row);
    step(*chooser);
    EXPECT_EQ(std::exchange(opened, {}), expected);
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_FALSE(Preferences::TemplatesOpen);
  }
}

TEST_F(WinTemplates, EditModeEndsWithTheSelectionAndDeletesUntilUndo) {
  EXPECT_EQ(State(), "one two three ") << "an empty equation cannot be edited";
  // the row selected, the button pressed, the resulting state, and the row selected then
  const std::tuple<Int32, PushButton& (winTemplates::*)() const, const char*, Int32> rows[] = {
      {1, &winTemplates::btnEdit, "one two three [Done][Rename][Delete]", 1},
      {2, &winTemplates::btnEdit, "one two three [Done][Rename][Delete]", 2},
      {2, &winTemplates::btnDelete, "one three [Edit...]", 2},  // the next row
      {2, &winTemplates::btnDelete, "one [Edit...]", 1},        // the last row
      {1, &winTemplates::btnDelete, "", 0},
  };
  for (const auto& [row, button, state, selected] : rows) {
    chooser->list().SetListIndex(row);
    (*chooser.*button)().setFocus();
    (*chooser.*button)().click();
    EXPECT_FALSE(chooser->btnOK().hasFocus()) << row;
    EXPECT_EQ(State(), state) << row;
    EXPECT_EQ(chooser->list().ListIndex(), selected) << row;
  }
  for (const char* state : {"one [Edit...]", "one three [Edit...]", "one two three [Edit...]"}) {
    EXPECT_TRUE(chooser->HandleCommand("EditUndo"));
    EXPECT_EQ(State(), state);
  }
  EXPECT_FALSE(chooser->HandleCommand("EditUndo"));
  EXPECT_EQ(chooser->list().ListIndex(), 2) << "a restored template is selected";
  EXPECT_EQ(TemplatesManager::EquationText, (Array<String>{"1", "2\r\n2", "3"}));
}

TEST_F(WinTemplates, FollowsTheStore) {
  chooser->list().SetListIndex(2);
  chooser->btnEdit().click();
  const HookGuard question = ShowDialog.Set([](const MessageDialog&) { return DialogButton::Action; });
  TemplatesManager::Add("two", "22");
  TemplatesManager::Add("four", "4");
  EXPECT_EQ(State(), "one two three four [Done][Rename][Delete]") << "the edit mode continues";
  EXPECT_EQ(chooser->list().Cell(4, 0) + chooser->list().Cell(4, 1), "four4");
  chooser->btnOK().click();
  EXPECT_EQ(opened, "two=22");
}

TEST_F(WinTemplates, RenamesAndSavesWhenThePointerComesBack) {
  chooser->list().SetListIndex(2);
  chooser->btnEdit().click();
  chooser->btnRename().click();
  QLineEdit& name = Front<winSave>()->textName();
  EXPECT_EQ(name.text(), "two");
  name.setText("one");
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_EQ(State(), "one one three [Done][Rename][Delete]") << "two templates may have the same name";
  EXPECT_FALSE(Preferences::GetPrefFile(true)->ReadBinaryFile());
  QEnterEvent entered({5, 5}, {5, 5}, {5, 5});
  QCoreApplication::sendEvent(chooser, &entered);
  EXPECT_TRUE(Preferences::GetPrefFile(true)->ReadBinaryFile());
}

TEST_F(WinTemplates, GivesTheListTheFocusWhenActivated) {
  chooser->list().SetListIndex(1);
  chooser->btnEdit().setFocus();
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(chooser, &activated);
  // A button keeps the focus while the user holds it down; otherwise the click would be lost.
  const QPoint onEdit = chooser->btnEdit().mapTo(chooser, QPoint(9, 9));
  QTest::mousePress(chooser->windowHandle(), Qt::LeftButton, {}, onEdit);
  clock.Advance(100);
  QTest::mouseRelease(chooser->windowHandle(), Qt::LeftButton, {}, onEdit);
  EXPECT_TRUE(chooser->bEditMode);
  clock.Advance(10);
  EXPECT_TRUE(chooser->list().hasFocus());
}

TEST_F(WinTemplates, PreviewIsCentredOnWhiteInADarkStyleToo) {
  chooser->list().setPalette(QColor(0x30, 0x30, 0x30));  // as some styles do
  QImage cell;
  const auto darkRows = [&] {
    cell = chooser->list().viewport()->grab().toImage().copy(202, 60, 10, 60);
    std::vector<int> dark;
    for (int y = 0; y < 60; ++y)
      for (int x = 0; x < 10; ++x)
        if (qGray(cell.pixel(x, y)) <= 90) dark.push_back(y);
    return dark;
  };
  // a text, and its first and last row of dark pixels out of 60; fonts differ by a few
  const std::tuple<String, int, int> rows[] = {{"HHH", 25, 35}, {String(1'000'000, 'H'), 6, 54}};
  for (const auto& [text, firstInk, lastInk] : rows) {
    TemplatesManager::EquationText[0] = text;
    chooser->LoadList();
    const std::vector<int> dark = darkRows();
    ASSERT_FALSE(dark.empty());
    EXPECT_NEAR(dark.front(), firstInk, 5);
    EXPECT_NEAR(dark.back(), lastInk, 5);
    EXPECT_EQ(cell.pixelColor(0, 0), QColor(Qt::white));
  }
  chooser->list().SetListIndex(1);
  EXPECT_FALSE(darkRows().empty()) << "the text of the selected row";
}

}  // namespace
}  // namespace sumlet
