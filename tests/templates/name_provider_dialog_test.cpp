#include "templates/name_provider_dialog.h"

#include <gtest/gtest.h>

#include <QTest>
#include <optional>

#include "framework/message.h"
#include "templates/win_save.h"

namespace sumlet {
namespace {

class Owner final : public Window {
 public:
  Owner() { Create(); }
  std::optional<NameProviderDialog> dialog{std::in_place};

 protected:
  void Layout() override { SetWidth(400); }
};

class NamePrompt : public testing::Test {
 protected:
  NamePrompt() {
    SetMessageHandler([this](std::string_view text) { log += "[" + String(text) + "]"; });
    owner->dialog->Prompt = "What name?";
    owner->dialog->Text = "old";
    owner->dialog->Saved = [this](NameProviderDialog& sender) {
      log += "Saved " + sender.Text + (Sheet() && Sheet()->isVisible() ? ", sheet up;" : ", sheet down;");
    };
    owner->dialog->Canceled = [this](NameProviderDialog& sender) { log += "Canceled " + sender.Text + ";"; };
    owner->dialog->ShowWithin(*owner);
    QCoreApplication::processEvents();
  }
  ~NamePrompt() override {
    SetMessageHandler({});
    if (owner) owner->Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  // The sheet in front, if one stands.
  [[nodiscard]] static winSave* Sheet() { return WindowCount() == 0 ? nullptr : dynamic_cast<winSave*>(&WindowAt(0)); }

  String log;
  QPointer<Owner> owner = new Owner;
};

TEST_F(NamePrompt, StandsOnItsWindow) {
  ASSERT_TRUE(Sheet());
  EXPECT_EQ(log, "") << "it does not wait for an answer";
  EXPECT_EQ(Sheet()->windowModality(), Qt::WindowModal);
  EXPECT_EQ(Sheet()->lblPrompt().text(), "What name?");
  EXPECT_EQ(Sheet()->textName().accessibleName(), "What name?");
  EXPECT_EQ(Sheet()->textName().selectedText(), "old");
  EXPECT_TRUE(Sheet()->textName().hasFocus());
  EXPECT_EQ(QSize(Sheet()->Width(), Sheet()->Height()), QSize(361, 109));
  owner->dialog->ShowWithin(*owner);
  EXPECT_EQ(WindowCount(), 2) << "one sheet at a time";
}

TEST_F(NamePrompt, Answers) {
  using Step = void (*)(winSave&);
  const struct {
    const char* typed;
    Step answer;
    const char* log;
    const char* text;  // of the dialog
    const char* field;
  } rows[] = {
      {" new\t ", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Return); }, "Saved new, sheet up;", "new",
       "new"},
      {"é😀", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Enter, Qt::KeypadModifier); },
       "Saved é😀, sheet up;", "é😀", "é😀"},
      {"n", [](winSave& s) { s.btnSave().click(); }, "Saved n, sheet up;", "n", "n"},
      {"new", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Escape); }, "Canceled old;", "old", "new"},
      {"new", [](winSave& s) { s.btnCancel().click(); }, "Canceled old;", "old", "new"},
      {"new", [](winSave& s) { s.close(); }, "Canceled old;", "old", "new"},
      // Return presses the button that has the focus
      {"new", [](winSave& s) { QTest::keyClick(&s.btnCancel(), Qt::Key_Return); }, "Canceled old;", "old", "new"},
      // refused, and the sheet stays
      {"", [](winSave& s) { s.btnSave().click(); }, "[Text can not be empty.]", "old", ""},
      {" \t ", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Return); }, "[Text can not be empty.]", "old",
       ""},
      {"n", [](winSave& s) { QTest::keyClick(&s.textName(), Qt::Key_Return, Qt::ControlModifier); }, "", "old", "n"},
  };
  for (const auto& row : rows) {
    owner->dialog->Text = "old";
    if (!Sheet()) owner->dialog->ShowWithin(*owner);
    log.clear();
    const QPointer<winSave> sheet = Sheet();
    sheet->textName().setText(row.typed);
    row.answer(*sheet);
    EXPECT_EQ(log, row.log);
    EXPECT_EQ(owner->dialog->Text, row.text);
    EXPECT_EQ(sheet->textName().text(), row.field) << row.log;
    const bool stays = !String(row.log).starts_with("Saved") && !String(row.log).starts_with("Canceled");
    EXPECT_EQ(sheet->isVisible(), stays) << row.log;
  }
}

TEST_F(NamePrompt, GoesWithItsWindowAndItsDialog) {
  owner->Close(true);
  EXPECT_EQ(log, "Canceled old;");
  EXPECT_EQ(WindowCount(), 0);
  Owner other;
  other.setAttribute(Qt::WA_DeleteOnClose, false);
  other.dialog->ShowWithin(other);
  other.dialog.reset();
  EXPECT_EQ(WindowCount(), 1);
}

// The program is ended while the handler asks a question: window, dialog and sheet are gone when it comes back.
TEST_F(NamePrompt, SurvivesTheEndInsideItsHandler) {
  bool cameBack = false;
  owner->dialog->Saved = [this, &cameBack](NameProviderDialog&) {
    delete owner.data();
    cameBack = true;
  };
  Sheet()->btnSave().click();
  EXPECT_TRUE(cameBack);
  EXPECT_EQ(WindowCount(), 0);
}

}  // namespace
}  // namespace sumlet
