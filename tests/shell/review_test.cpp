#include "shell/review.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QUrl>

#include "framework/message.h"
#include "framework/show_url.h"
#include "framework/ui/browser.h"
#include "framework/ui/manual_clock.h"
#include "persistence/preferences.h"
#include "shell/web_addresses.h"

namespace sumlet {
namespace {

class Review : public testing::Test {
 protected:
  Review() {
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    SetDialogHandler([this](const MessageDialog&) {
      ++asked;
      savedFirst = Preferences::GetPrefFile(false) && Preferences::GetPrefFile(false)->Exists();
      return answer;
    });
  }
  ~Review() override {
    SetDialogHandler({});
    Preferences::RunCount = 0;
    Preferences::ShownReviewDialog = false;
  }
  void Start() {
    timer.SetPeriod(100);
    timer.SetMode(TimerMode::Single);
    clock.Advance(100);
  }

  QTemporaryDir home;
  ManualClock clock;
  int asked = 0;
  DialogButton answer = DialogButton::Cancel;
  bool savedFirst = false;
  int shared = 0;
  ReviewTimer timer{[this] { ++shared; }};
};

TEST_F(Review, AsksOnceAtTheFifthStart) {
  const struct {
    Int32 runCount;
    bool shown;
    bool asks;
  } rows[] = {{0, false, false}, {3, false, false},  {4, false, true},
              {4, true, false},  {100, false, true}, {-1, false, false}};
  for (const auto& row : rows) {
    asked = 0;
    Preferences::RunCount = row.runCount;
    Preferences::ShownReviewDialog = row.shown;
    Start();
    Start();
    EXPECT_EQ(asked, row.asks ? 1 : 0) << row.runCount << row.shown;
    EXPECT_EQ(Preferences::ShownReviewDialog, row.shown || row.asks);
  }
  EXPECT_EQ(shared, 0);
}

TEST_F(Review, SavesFirstAndSharesOnTheAction) {
  Preferences::RunCount = 4;
  answer = DialogButton::Action;
  Start();
  EXPECT_TRUE(savedFirst);
  EXPECT_EQ(shared, 1);
  Preferences::Load();
  EXPECT_TRUE(Preferences::ShownReviewDialog) << "in the file";
  EXPECT_EQ(Preferences::RunCount, 5);
}

// Takes the addresses in place of the desktop, which calls a slot by its name; this one is setSource.
class Desktop final : public QTextBrowser {
 public:
  Desktop() {
    for (const char* scheme : {"https", "macappstore"}) QDesktopServices::setUrlHandler(scheme, this, "setSource");
    InstallBrowser();
  }
  ~Desktop() override {
    SetURLHandler({});
    for (const char* scheme : {"https", "macappstore"}) QDesktopServices::unsetUrlHandler(scheme);
  }
  std::string opened;

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType /*type*/) override {
    opened = url.toEncoded().toStdString();
  }
};

TEST(WebAddresses, ReachTheDesktopEncoded) {
  Desktop desktop;
  const struct {
    String address;
    const char* opened;
  } rows[] = {
      {WebAddresses::Website(), "https://www.sumlet.example/sumlet.html"},
      {WebAddresses::Feedback(), "https://www.sumlet.example/contact.html?s=Sumlet"},
      {WebAddresses::Share(), "https://share.sumlet.example/sharer.php?u=https%3A%2F%2Fwww.sumlet.example%2Fsumlet%2F"},
      {WebAddresses::Store(), "macappstore://store.sumlet.example/us/app/sumlet/id0?ls=1&mt=12"},
      {"https://www.sumlet.example/50%", ""},
  };
  for (const auto& row : rows) {
    desktop.opened.clear();
    ShowURL(row.address);
    EXPECT_EQ(desktop.opened, row.opened) << row.address;
  }
}

}  // namespace
}  // namespace sumlet
