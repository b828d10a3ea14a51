#include "equationwindow/win_sumlet.h"

#include "equationwindow/equation_fixture.h"
#include "templates/templates_manager.h"
#include "templates/win_save.h"

namespace sumlet {
namespace {

class CountingMath final : public MathClass {
 public:
  explicit CountingMath(int* count) : count_(count) {}
  String Evaluate() override {
    ++*count_;
    return MathClass::Evaluate();
  }

 private:
  int* count_;
};

class WinSumlet : public EquationFixture {
 protected:
  WinSumlet() { window->math = std::make_unique<CountingMath>(&calculations); }
  int calculations = 0;
};

TEST_F(WinSumlet, CalculatesOnceTypingHasStopped) {
  EXPECT_EQ(QApplication::focusWidget(), &window->textInput()) << "ready to type";
  Fill("(1");
  clock.Advance(1000);
  EXPECT_EQ(std::exchange(calculations, 0), 1) << "a text set by program arms no timer";
  EXPECT_EQ(saves, 0);
  window->textInput().selectAll();
  for (const char key : std::string("1+2+3+4+56")) {
    clock.Advance(100);
    QTest::keyClick(&window->textInput(), key);
  }
  EXPECT_EQ(saves, 10);
  clock.Advance(249);
  EXPECT_EQ(calculations, 0);
  clock.Advance(1);
  EXPECT_EQ(Result(), "66");
  clock.Advance(10000);
  EXPECT_EQ(calculations, 1);

  // a calculation by program leaves the armed timer as it is, and closing switches it off
  for (const bool closes : {false, true}) {
    QTest::keyClick(&window->textInput(), Qt::Key_1);
    if (!closes) window->Calculate();
    if (closes) window->Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.isNull(), closes);
    clock.Advance(250);
    EXPECT_EQ(calculations, 3);
  }
}

TEST_F(WinSumlet, AreasStandOnePixelOutside) {
  for (const QSize size : {QSize(365, 234), QSize(500, 400), QSize(64, 64)}) {
    window->SetWidth(size.width());
    window->SetHeight(size.height());
    const QRect input = window->textInput().geometry();
    const QRect output = window->textOutput().geometry();
    EXPECT_EQ(input, QRect(-1, -1, size.width() + 2, output.top() - 1));
    EXPECT_EQ(QRect(output.bottomLeft(), output.bottomRight()), QRect(-1, size.height(), size.width() + 2, 1));
  }
  window->hide();
  window->SetWidth(32000);
  window->SetHeight(32000);
  EXPECT_EQ(QSize(window->Width(), window->Height()), QSize(16384, 4096)) << "its picture fits into memory";
}

TEST_F(WinSumlet, SavesAsTemplateTheTextOfTheMomentOfSaving) {
  SetDialogHandler([](const MessageDialog&) {
    EXPECT_TRUE(dynamic_cast<winSave*>(&WindowAt(0))) << "asked about a name that is there with the sheet still up";
    return DialogButton::Action;
  });
  for (const char* from : {"", "from"}) {
    window->FromTemplate = from;
    EXPECT_TRUE(window->_FileSaveAsTemplate_Action());
    auto* sheet = dynamic_cast<winSave*>(&WindowAt(0));
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->textName().text(), *from == '\0' ? "Untitled Template" : from);
    sheet->textName().setText("first");
    window->textInput().SetText(String("1+1") + from);
    QTest::keyClick(&sheet->textName(), Qt::Key_Return);
    EXPECT_EQ(TemplatesManager::Key.Ubound(), 0);
    EXPECT_EQ(TemplatesManager::EquationText[0], String("1+1") + from);
  }
}

}  // namespace
}  // namespace sumlet
