#include "shell/review.h"

#include <QDesktopServices>
#include <QTextBrowser>
#include <QUrl>

#include "framework/show_url.h"
#include "framework/ui/browser.h"
#include "framework/ui/window_fixture.h"
#include "persistence/preferences.h"
#include "shell/app.h"
#include "shell/menus.h"
#include "shell/web_addresses.h"

namespace sumlet {
namespace {

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

class Review : public WindowFixture {
 protected:
  Desktop desktop;
};

TEST_F(Review, AsksOnceAtTheFifthStart) {
  int asked = 0, shared = 0;
  bool savedFirst = false;
  DialogButton answer = DialogButton::Cancel;
  SetDialogHandler([&](const MessageDialog&) {
    ++asked;
    savedFirst = Preferences::GetPrefFile(false) && Preferences::GetPrefFile(false)->Exists();
    return answer;
  });
  ReviewTimer timer([&shared] { ++shared; });
  // runs before, whether it has been shown, how often it asks
  const std::tuple<Int32, bool, int> rows[] = {
      {-1, false, 0}, {3, false, 0}, {4, true, 0}, {100, false, 1}, {4, false, 1}};
  for (const auto& [runCount, shown, asks] : rows) {
    asked = shared = 0;
    Preferences::RunCount = runCount;
    Preferences::ShownReviewDialog = shown;
    answer = runCount == 100 ? DialogButton::Cancel : DialogButton::Action;
    for (int i = 0; i < 2; ++i) timer.Expire();
    EXPECT_EQ(asked, asks) << runCount << shown;
    EXPECT_EQ(shared, runCount == 100 ? 0 : asks);
  }
  EXPECT_TRUE(savedFirst);
  Preferences::Load();
  EXPECT_TRUE(Preferences::ShownReviewDialog) << "in the file";
  EXPECT_EQ(Preferences::RunCount, 5);
}

TEST_F(Review, WebAddressesReachTheDesktopEncoded) {
  App app;
  app.AppendMenuItems();
  MenuBar1().Choose("Share");
  EXPECT_EQ(desktop.opened, "https://share.sumlet.example/sharer.php?u=https%3A%2F%2Fwww.sumlet.example%2Fsumlet%2F");
  ShowURL(WebAddresses::Store());
  EXPECT_EQ(desktop.opened, "macappstore://store.sumlet.example/us/app/sumlet/id0?ls=1&mt=12");
  desktop.opened.clear();
  ShowURL("https://www.sumlet.example/50%");
  EXPECT_EQ(desktop.opened, "") << "no address";
}

}  // namespace
}  // namespace sumlet
