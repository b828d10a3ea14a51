#include "shell/app.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "equationwindow/win_sumlet.h"
#include "framework/fault.h"
#include "framework/message.h"
#include "framework/ui/application.h"
#include "framework/ui/dialogs.h"
#include "framework/ui/manual_clock.h"
#include "framework/ui/window.h"
#include "persistence/preferences.h"

namespace sumlet {
namespace {

class RecordingWindow final : public Window {
 public:
  explicit RecordingWindow(String* record) : record_(record) { Create(); }

 protected:
  bool Event_CancelClose(bool appQuitting) override {
    *record_ += appQuitting ? "close, quitting;" : "close;";
    return false;
  }

 private:
  String* record_;
};

class ApplicationLife : public testing::Test {
 protected:
  // A section of the settings that notes when it is stored, with how many windows, and acts when it is loaded.
  static void SetUpTestSuite() {
    const auto load = [] {
      if (current && current->WhenLoading) current->WhenLoading();
    };
    Preferences::RegisterSection({"Probe", [] { return current ? current->NoteSave() : String(); },
                                  [load](std::string_view) { load(); }, [load](plistDict&) { load(); }});
  }
  ApplicationLife() {
    current = this;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    winSumlet::ScheduleSave = [this] { app.ScheduleSave(); };
    Preferences::RememberEquations = true;
  }
  ~ApplicationLife() override {
    current = nullptr;
    winSumlet::ScheduleSave = nullptr;
    while (WindowCount() > 0) WindowAt(0).Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  String NoteSave() {
    record += "save with " + std::to_string(WindowCount()) + ";";
    return {};
  }
  // The status with which the event loop ends once `action` has run in it.
  static int Run(const std::function<void()>& action) {
    QTimer::singleShot(0, action);
    return QCoreApplication::exec();
  }
  [[nodiscard]] static bool ChooserIsAlone() {
    return WindowCount() == 1 && dynamic_cast<winTemplates*>(&WindowAt(0)) != nullptr;
  }

  static inline ApplicationLife* current = nullptr;
  QTemporaryDir folder;
  ManualClock clock;
  App app;
  String record;
  std::function<void()> WhenLoading;
};

TEST_F(ApplicationLife, SavesFiveMinutesAfterTheLastKey) {
  auto* a = new winSumlet;
  auto* b = new winSumlet;
  QTest::keyClick(&a->textInput(), Qt::Key_1);
  clock.Advance(240000);
  QTest::keyClick(&b->textInput(), Qt::Key_2);
  clock.Advance(299999);
  EXPECT_EQ(record, "");
  clock.Advance(1);
  EXPECT_EQ(record, "save with 2;");
  clock.Advance(600000);
  EXPECT_EQ(record, "save with 2;") << "once";
  const SaveTimer* timer = app.tmrSave.get();
  QTest::keyClick(&b->textInput(), Qt::Key_2);
  EXPECT_EQ(app.tmrSave.get(), timer);
}

TEST_F(ApplicationLife, SchedulesNothingWhenNothingIsRemembered) {
  Preferences::RememberEquations = false;
  QTest::keyClick(&(new winSumlet)->textInput(), Qt::Key_1);
  app.ScheduleSave();
  EXPECT_EQ(app.tmrSave, nullptr);
}

TEST_F(ApplicationLife, OpensWithWhatWasOpenOrTheChooser) {
  WhenLoading = [] { new winSumlet; };
  app.Event_Open();
  EXPECT_EQ(WindowCount(), 1);
  EXPECT_FALSE(ChooserIsAlone());
  EXPECT_EQ(record, "");
  WindowAt(0).Close();
  WhenLoading = nullptr;
  app.Event_Open();
  EXPECT_TRUE(ChooserIsAlone());
}

TEST_F(ApplicationLife, StartedAgain) {
  app.Event_Reopen();
  EXPECT_EQ(WindowCount(), 0) << "not before it has opened";
  app.Event_Open();
  WindowAt(0).Close();
  app.Event_Reopen();
  EXPECT_TRUE(ChooserIsAlone());
  app.Event_Reopen();
  EXPECT_TRUE(ChooserIsAlone()) << "there is one at most";
  EXPECT_TRUE(app._FileNewWindow_Action());
  QWidget& front = WindowAt(0);
  front.hide();
  app.Event_Reopen();
  EXPECT_EQ(WindowCount(), 2) << "a hidden window counts";
  EXPECT_TRUE(front.isVisible());
  EXPECT_EQ(&WindowAt(0), &front);
  EXPECT_TRUE(app._FileNew_Action());
  EXPECT_EQ(WindowCount(), 2);
  EXPECT_NE(&WindowAt(0), &front);
}

// The desktop says "quit" by an event of the toolkit; without the program's own way, that would close windows first.
TEST_F(ApplicationLife, QuitSavesWhileAllWindowsStand) {
  auto& application = *static_cast<Application*>(QCoreApplication::instance());
  application.QuitRequested = [this] { app.Quit(); };
  app.Event_Open();
  new RecordingWindow(&record);
  new RecordingWindow(&record);
  EXPECT_EQ(Run([] { QCoreApplication::quit(); }), 0);
  EXPECT_EQ(record, "save with 3;close, quitting;close, quitting;");
  EXPECT_EQ(WindowCount(), 0);
  EXPECT_TRUE(Preferences::TemplatesOpen) << "a chooser that is open at quit counts as open";
  app.Quit();
  EXPECT_EQ(record, "save with 3;close, quitting;close, quitting;") << "no save follows";
  application.QuitRequested = nullptr;
}

TEST_F(ApplicationLife, QuitAsksNothingAndWaitsForNoAlert) {
  InstallDialogs();
  app.Event_Open();
  WindowAt(0).Close();
  new RecordingWindow(&record);
  DialogButton answer = DialogButton::Action;
  EXPECT_EQ(Run([&] {
              QTimer::singleShot(0, [&] { app.Quit(); });
              MessageDialog question;
              question.CancelButton = true;
              answer = question.ShowModal();
              MsgBox("And no other comes up.");
            }),
            0);
  EXPECT_EQ(answer, DialogButton::Cancel);
  EXPECT_EQ(record, "save with 1;close, quitting;");
  SetMessageHandler(nullptr);
  SetDialogHandler(nullptr);
}

// An alert about damage may stand while only some of the windows are back: saving them would lose the others.
TEST_F(ApplicationLife, QuitBeforeEverythingIsLoadedSavesNothing) {
  new RecordingWindow(&record);
  WhenLoading = [this] { app.Quit(); };
  EXPECT_EQ(Run([this] { app.Event_Open(); }), 0);
  EXPECT_EQ(record, "close, quitting;");
  EXPECT_EQ(WindowCount(), 0) << "and no chooser opens any more";
}

TEST_F(ApplicationLife, GoesOnAfterAFaultAtStart) {
  Preferences::Save();  // the older settings, read where there are none, take a fault for the end of their file
  record.clear();
  WhenLoading = [] { throw Fault("an index out of range"); };
  String told;
  SetMessageHandler([&](std::string_view text) {
    told = text;
    app.Event_Reopen();
    app.Quit();
  });
  EXPECT_EQ(Run([this] { app.Event_Open(); }), 0);
  EXPECT_EQ(told, "This could not be done because of an index out of range.");
  EXPECT_EQ(record, "save with 1;") << "started again, it shows the chooser";
  SetMessageHandler(nullptr);
}

TEST_F(ApplicationLife, OpensAChosenEquation) {
  const winTemplates::Template chosen = {"Sum", "a=1\na+41"};
  App::OpenEquation(&chosen);
  auto& window = dynamic_cast<winSumlet&>(WindowAt(0));
  EXPECT_EQ(window.FromTemplate, "Sum");
  EXPECT_EQ(window.textInput().Text(), chosen.Text);
  EXPECT_EQ(window.textOutput().Text(), "42");
  EXPECT_EQ(app.tmrSave, nullptr) << "it does not count as typed";
  App::OpenEquation(nullptr);
  EXPECT_EQ(dynamic_cast<winSumlet&>(WindowAt(0)).FromTemplate, "");
}

}  // namespace
}  // namespace sumlet
