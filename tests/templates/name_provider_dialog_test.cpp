#include "templates/name_provider_dialog.h"

#include <optional>

#include "framework/desktop.h"
#include "framework/ui/window_fixture.h"
#include "templates/win_save.h"

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
  // what is typed, the answer, what is told, and what the field holds when the answer has been given
  const std::tuple<const char*, void (*)(winSave&), const char*, const char*> rows[] = {
      {" new\t ", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Return); }, "Saved new, sheet up;", "new"},
      {"é😀", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Enter, Qt::KeypadModifier); },
       "Saved é😀, sheet up;", "é😀"},
      {"new", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Escape); }, "Canceled old;", "new"},
      {"new", [](winSave& s) { s.close(); }, "Canceled old;", "new"},
      // Return presses the button that has the focus
      {"new", [](winSave& s) { QTest::keyClick(&s.btnCancel(), Qt::Key_Return); }, "Canceled old;", "new"},
      // refused, and the sheet stays
      {" \t ", [](winSave& s) { s.btnSave().click(); }, "[Text can not be empty.]", ""},
      {"n", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Return, Qt::ControlModifier); }, "", "n"},
  };
  for (const auto& [typed, answer, told, field] : rows) {
    owner->dialog->Text = "old";
    for (int i = 0; i < 2; ++i) owner->dialog->ShowWithin(*owner);
    EXPECT_EQ(WindowCount(), 2) << "one sheet at a time";
    winSave& sheet = *Front<winSave>();
    sheet.textName().setText(typed);
    answer(sheet);
    EXPECT_EQ(log, told);
    EXPECT_EQ(owner->dialog->Text, log.starts_with("Saved") ? field : "old");
    EXPECT_EQ(sheet.textName().text(), field) << told;
    EXPECT_EQ(WindowCount(), log.ends_with(";") ? 1 : 2) << told;
    log.clear();
  }
}

TEST_F(NamePrompt, GoesWithItsWindowAndItsDialog) {
  owner->Close(true);
  EXPECT_EQ(log, "Canceled old;");
  EXPECT_EQ(WindowCount(), 0);
  auto& other = *new Owner;
  other.dialog->Canceled = [this](NameProviderDialog&) { log += "from the grave"; };
  other.dialog->ShowWithin(other);
  other.dialog.reset();
  EXPECT_EQ(WindowCount(), 1);
  EXPECT_EQ(log, "Canceled old;");
}

// The program is ended while the handler asks a question: window, dialog and sheet are gone when it comes back.
TEST_F(NamePrompt, SurvivesTheEndInsideItsHandler) {
  owner->dialog->Saved = [this](NameProviderDialog&) {
    delete owner.data();
    log = "came back";
  };
  Front<winSave>()->btnSave().click();
  EXPECT_EQ(log, "came back");
  EXPECT_EQ(WindowCount(), 0);
}

}  // namespace
}  // namespace sumlet
