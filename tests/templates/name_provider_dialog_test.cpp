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

}  // namespace
}  // namespace sumlet
