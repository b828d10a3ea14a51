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

using Review = WindowFixture;

TEST_F(Review, AsksOnceAtTheFifthStart) {
  int asked = 0, shared = 0;
  DialogButton answer = DialogButton::Cancel;
  SetDialogHandler([&](const MessageDialog&) {
    ++asked;
    Preferences::ShownReviewDialog = false;
    Preferences::Load();
    EXPECT_TRUE(Preferences::ShownReviewDialog) << "in the file before the user answers";
    return answer;
  });
  ReviewTimer timer([&shared] { ++shared; });
  // runs before, whether it has been shown, how often it asks
  const std::tuple<Int32, bool, int> rows[] = {{3, false, 0}, {4, true, 0}, {100, false, 1}, {4, false, 1}};
  for (const auto& [runCount, shown, asks] : rows) {
    asked = shared = 0;
    Preferences::RunCount = runCount;
    Preferences::ShownReviewDialog = shown;
    answer = runCount == 100 ? DialogButton::Cancel : DialogButton::Action;
    for (int i = 0; i < 2; ++i) timer.Expire();
    EXPECT_EQ(asked, asks) << runCount << shown;
    EXPECT_EQ(shared, runCount == 100 ? 0 : asks);
  }
}

TEST_F(Review, WebAddressesReachTheDesktopEncoded) {
  QTextBrowser desktop;  // takes the addresses in its place
  for (const char* scheme : {"https", "macappstore"}) QDesktopServices::setUrlHandler(scheme, &desktop, "setSource");
  InstallBrowser();
  const auto opened = [&desktop] { return desktop.source().toEncoded().toStdString(); };
  App app;
  app.AppendMenuItems();
  MenuBar1().Choose("Share");
  EXPECT_EQ(opened(), "https://share.sumlet.example/sharer.php?u=https%3A%2F%2Fwww.sumlet.example%2Fsumlet%2F");
  const String store = "macappstore://store.sumlet.example/us/app/sumlet/id0?ls=1&mt=12";
  for (const String& address : {WebAddresses::Store(), String("https://www.sumlet.example/50%")}) {
    ShowURL(address);
    EXPECT_EQ(opened(), store) << "and not what is no address";
  }
  SetURLHandler({});
}

}  // namespace
}  // namespace sumlet
