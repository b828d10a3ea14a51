#include "shell/app.h"

#include <QDesktopServices>
#include <QTextBrowser>
#include <QTimer>
#include <functional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "equationwindow/win_sumlet.h"
#include "framework/desktop.h"
#include "framework/fault.h"
#include "framework/ui/application.h"
#include "framework/ui/desktop.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/review.h"
#include "shell/web_addresses.h"

namespace sumlet {
namespace {

class ApplicationLife : public WindowFixture {
 protected:
  // Registers a section that records each save with the number of windows, and calls WhenLoading at each load.
  ApplicationLife() {
    const auto store = [this] {
      record += "save with " + std::to_string(WindowCount()) + ";";
      return String();
    };
    const auto load = [this](const auto&) { WhenLoading(); };
    Preferences::RegisterSection({"Probe", store, load, load});
  }
  // Runs the event loop until it ends, with `action` as its first event.
  static void Run(const std::function<void()>& action) {
    QTimer::singleShot(0, action);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(WindowCount(), 0);
  }
  App app;
  String record;
  std::function<void()> WhenLoading = [] {};
};

TEST_F(ApplicationLife, SavesFiveMinutesAfterTheLastKey) {
  const HookGuard save = winSumlet::ScheduleSave.Set([this] { app.ScheduleSave(); });
  TextArea& input = (new winSumlet)->textInput();
  for (const bool remembered : {false, true, true}) {
    Preferences::RememberEquations = remembered;
    QTest::keyClick(&input, Qt::Key_2);
    app.ScheduleSave();
    clock.Advance(remembered ? 299999 : 300000);
    EXPECT_EQ(record, "");
  }
  for (const Int32 milliseconds : {1, 600000}) {
    clock.Advance(milliseconds);
    EXPECT_EQ(record, "save with 1;");
  }
}

// The desktop's request to quit is an event, for which the toolkit by default closes the windows first.
TEST_F(ApplicationLife, QuitSavesBeforeWindowsClose) {
  auto& application = *static_cast<Application*>(QCoreApplication::instance());
  application.QuitRequested = [this] { app.Quit(); };
  app.Event_Open();
  EXPECT_EQ(WindowCount(), 1) << "the chooser opens because nothing was open";
  for (int i = 0; i < 2; ++i) new winSumlet;
  Run([] { QCoreApplication::quit(); });
  app.Quit();
  EXPECT_EQ(record, "save with 3;") << "one save, before the windows close";
  EXPECT_TRUE(Preferences::TemplatesOpen) << "a chooser that is open at quit counts as open";
  application.QuitRequested = nullptr;
}

// One second after the last key, and every five seconds while the user types without a pause.
TEST_F(ApplicationLife, WritesTheRecoveryFileWhenTypingPauses) {
  app.Event_Open();
  const std::pair<bool, std::vector<Int32>> rows[] = {
      // whether equations are remembered, the pause after each key in ms; the record has a "+" for each pause
      {true, {999, 999, 1001, 5000}},
      {true, {900, 900, 900, 900, 900, 900}},
      {false, {5000}},
  };
  for (const auto& [remembered, pauses] : rows) {
    Preferences::RememberEquations = remembered;
    for (const Int32 pause : pauses) {
      app.ScheduleSave();
      clock.Advance(pause);
      record += "+";
      Preferences::FinishSaving();
    }
    record += ";";
  }
  EXPECT_EQ(record, "++save with 1;+save with 1;+;+++++save with 1;+;+;");
  EXPECT_TRUE(Preferences::HasRecovery());
  app.Quit();
  EXPECT_FALSE(Preferences::HasRecovery());
}

TEST_F(ApplicationLife, QuitSavesWhatAnInputMethodComposes) {
  app.Event_Open();
  TextArea& input = (new winSumlet)->textInput();
  EXPECT_TRUE(QTest::qWaitForWindowActive(input.window()));
  input.setFocus();
  QInputMethodEvent composing(QStringLiteral("\uD55C"), {});
  QCoreApplication::sendEvent(&input, &composing);
  const auto ignore = [](const auto&) {};
  Preferences::RegisterSection({"Probe", [&] { return record = input.Text(); }, ignore, ignore});
  app.Quit();
  EXPECT_EQ(record, "\uD55C");
}

// An alert about damage may be open while some windows are not restored yet: a save would lose those.
TEST_F(ApplicationLife, QuitBeforeEverythingIsLoadedSavesNothing) {
  new winSumlet;
  WhenLoading = [this] { app.Quit(); };
  Run([this] { app.Event_Open(); });
  EXPECT_EQ(record, "");
}

TEST_F(ApplicationLife, ContinuesAfterAFaultAtStart) {
  Preferences::Save();  // without a settings file, Load would read the older one, which handles faults itself
  record.clear();
  WhenLoading = [] { throw Fault("an index out of range"); };
  String told;
  const HookGuard alerts = MsgBox.Set([&](std::string_view text) {
    told = text;
    app.Event_Reopen();
    app.Quit();
  });
  Run([this] { app.Event_Open(); });
  EXPECT_EQ(told, "This could not be done because of an index out of range.");
  EXPECT_EQ(record, "save with 1;") << "the second start shows the chooser";
}

TEST_F(ApplicationLife, AsksForAReviewOnceAtTheFifthStart) {
  int asked = 0, shared = 0;
  const HookGuard question = ShowDialog.Set([&](const MessageDialog&) {
    ++asked;
    Preferences::ShownReviewDialog = false;
    Preferences::Load();
    EXPECT_TRUE(Preferences::ShownReviewDialog) << "saved before the user answers";
    return asked == 1 ? DialogButton::Cancel : DialogButton::Action;
  });
  ReviewTimer timer([&shared] { ++shared; });
  // earlier runs, whether the question was shown before, how often it was asked so far
  const std::tuple<Int32, bool, int> rows[] = {{3, false, 0}, {4, true, 0}, {100, false, 1}, {4, false, 2}};
  for (const auto& [runCount, shown, asks] : rows) {
    Preferences::RunCount = runCount;
    Preferences::ShownReviewDialog = shown;
    for (int i = 0; i < 2; ++i) timer.Expire();
    EXPECT_EQ(asked, asks) << runCount << shown;
  }
  EXPECT_EQ(shared, 1);
}

TEST_F(ApplicationLife, WebAddressesReachTheDesktopEncoded) {
  QTextBrowser desktop;  // receives the addresses in place of the desktop
  constexpr const char* schemes[] = {"https", "macappstore"};
  for (const char* scheme : schemes) QDesktopServices::setUrlHandler(scheme, &desktop, "setSource");
  const auto desktopHooks = InstallDesktop();
  const auto opened = [&desktop] { return desktop.source().toEncoded().toStdString(); };
  ShowURL(WebAddresses::Share());
  EXPECT_EQ(opened(), "https://share.sumlet.example/sharer.php?u=https%3A%2F%2Fwww.sumlet.example%2Fsumlet%2F");
  const String store = "macappstore://store.sumlet.example/us/app/sumlet/id0?ls=1&mt=12";
  for (const String& address : {WebAddresses::Store(), String("https://www.sumlet.example/50%")}) {
    ShowURL(address);
    EXPECT_EQ(opened(), store) << "drops an invalid address";
  }
  for (const char* scheme : schemes) QDesktopServices::unsetUrlHandler(scheme);
}

}  // namespace
}  // namespace sumlet
