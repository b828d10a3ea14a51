#include "framework/ui/window.h"

#include <algorithm>

#include "framework/fault.h"
#include "framework/ui/base_window.h"
#include "framework/ui/window_fixture.h"

namespace sumlet {
namespace {

TEST(StaggeredCorner, StaysOnTheScreen) {
  const std::tuple<QSize, std::optional<QPoint>, QPoint> rows[] = {
      {{200, 200}, {}, {124, 74}},
      {{200, 200}, QPoint(148, 130), {172, 74}},   // would leave at the bottom
      {{200, 200}, QPoint(290, 74), {124, 98}},    // would leave at the right
      {{200, 200}, QPoint(2000, 74), {124, 74}},   // the one before was on a screen that is gone
      {{4000, 3000}, QPoint(124, 74), {100, 50}},  // none
  };
  for (const auto& [size, previous, corner] : rows)
    EXPECT_EQ(StaggeredCorner(size, QRect(100, 50, 400, 300), previous), corner);
  // The 8 by 4 places of this screen are taken one by one, and then the first again.
  std::vector<QPoint> taken;
  for (int i = 0; i < 32; ++i) {
    const QPoint corner = StaggeredCorner({200, 200}, QRect(100, 50, 400, 300), {}, taken);
    EXPECT_EQ(std::count(taken.begin(), taken.end(), corner), 0) << i;
    taken.push_back(corner);
  }
  EXPECT_EQ(StaggeredCorner({200, 200}, QRect(100, 50, 400, 300), {}, taken), QPoint(124, 74));
  EXPECT_EQ(StaggeredCorner({200, 200}, QRect(100, 50, 400, 300), {}, {{130, 70}}), QPoint(148, 98))
      << "a title hidden";
}

struct RecordingWindow final : BaseWindow {
  explicit RecordingWindow(std::string& events) : record(events) { Create(); }
  void Layout() override { SetWidth(300); }
  void Event_Open() override { record += "Open;"; }
  void Event_Resized() override { record += "Resized;"; }
  bool Event_CancelClose(bool appQuitting) override {
    record += appQuitting ? "CancelClose, quitting;" : "CancelClose;";
    return refuses;
  }
  std::string& record;
  bool refuses = false;
};

class WindowTest : public WindowFixture {
 protected:
  RecordingWindow* NewWindow() { return new RecordingWindow(record); }
  // What has happened since the last call.
  std::string Events() {
    QCoreApplication::processEvents();
    return std::exchange(record, {});
  }
  std::string record;
};

TEST_F(WindowTest, RaisesItsEvents) {
  const QPointer<RecordingWindow> window = NewWindow();
  EXPECT_TRUE(Events().starts_with("Open;")) << "it hears of no size before";
  for (int i = 0; i < 2; ++i) window->SetWidth(310);
  EXPECT_EQ(Events(), "Resized;");
  for (const auto state : {Qt::WindowMinimized, Qt::WindowNoState}) {
    window->setWindowState(state);
    EXPECT_EQ(window->Minimized, state == Qt::WindowMinimized);
  }
  for (const bool refuses : {true, false}) {
    window->refuses = refuses;
    EXPECT_EQ(window->Close(refuses), !refuses);
    EXPECT_EQ(WindowCount(), refuses ? 1 : 0);
  }
  EXPECT_FALSE(window.isNull()) << "it lives until control is back at the event loop";
  DestroyClosed();
  EXPECT_TRUE(window.isNull());
  EXPECT_EQ(Events(), "CancelClose, quitting;CancelClose;");
}

TEST_F(WindowTest, ListRunsFromFrontToBack) {
  auto *a = NewWindow(), *b = NewWindow(), *c = NewWindow();
  using Order = std::vector<const Window*>;
  const auto order = [] {
    Order windows;
    for (Int32 i = 0; i < WindowCount(); ++i) windows.push_back(&WindowAt(i));
    return windows;
  };
  b->Show();
  EXPECT_EQ(order(), (Order{b, c, a}));
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(a, &activated);
  b->hide();
  EXPECT_EQ(order(), (Order{a, b, c}));
  EXPECT_TRUE(b->Close()) << "a hidden window closes like any other";
  record.clear();
  QCoreApplication::sendEvent(b, &activated);
  b->Show();
  b->Close();
  EXPECT_EQ(order(), (Order{a, c})) << "a closed window does not come back";
  EXPECT_EQ(record, "") << "nor does it raise events";
  EXPECT_THROW((void)WindowAt(2), Fault);
}

}  // namespace
}  // namespace sumlet
