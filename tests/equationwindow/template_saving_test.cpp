#include <gtest/gtest.h>

#include <QTest>

#include "equationwindow/win_sumlet.h"
#include "framework/message.h"
#include "templates/templates_manager.h"
#include "templates/win_save.h"

namespace sumlet {
namespace {

TEST(SaveAsTemplate, StoresTheTextOfTheMomentOfSaving) {
  const struct {
    const char* from;  // the name that the equation came from
    const char* offered;
    const char* typed;
    DialogButton answer;  // to the question about a name that is there already
    const char* templates;
  } rows[] = {
      {"", "Untitled Template", "first", DialogButton::Cancel, "first=1+1;"},
      {"from", "from", "FIRST", DialogButton::Cancel, "first=1+1;"},
      {"from", "from", "FIRST", DialogButton::Alternate, "first=1+1;FIRST=3+1;"},
      {"from", "from", "first", DialogButton::Action, "first=4+1;FIRST=3+1;"},
  };
  auto* window = new winSumlet;
  int number = 0;
  for (const auto& row : rows) {
    SetDialogHandler([&row](const MessageDialog&) {
      EXPECT_TRUE(dynamic_cast<winSave*>(&WindowAt(0))) << "asked with the sheet still up";
      return row.answer;
    });
    window->FromTemplate = row.from;
    window->textInput().SetText(std::to_string(++number));
    EXPECT_TRUE(window->_FileSaveAsTemplate_Action());
    auto* sheet = dynamic_cast<winSave*>(&WindowAt(0));
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->lblPrompt().text(), "Provide a name for the Template:");
    EXPECT_EQ(sheet->textName().text(), row.offered);
    sheet->textName().setText(row.typed);
    window->textInput().SetText(std::to_string(number) + "+1");
    QTest::keyClick(&sheet->textName(), Qt::Key_Return);
    std::string templates;
    for (Int32 i = 0; i <= TemplatesManager::Key.Ubound(); ++i)
      templates += TemplatesManager::Key[i] + "=" + TemplatesManager::EquationText[i] + ";";
    EXPECT_EQ(templates, row.templates);
  }
  SetDialogHandler({});
  window->Close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace
}  // namespace sumlet
