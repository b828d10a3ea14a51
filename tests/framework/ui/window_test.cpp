#include "framework/ui/window.h"

#include <algorithm>
#include <optional>
#include <tuple>

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
  const QPoint besideAWindow = StaggeredCorner({200, 200}, QRect(100, 50, 400, 300), {}, {{130, 70}});
  EXPECT_EQ(besideAWindow, QPoint(148, 98)) << "would hide a title";
  // The 8 by 4 places of this screen are taken one by one.
  std::vector<QPoint> taken;
  for (int i = 0; i < 32; ++i) {
    const QPoint corner = StaggeredCorner({200, 200}, QRect(100, 50, 400, 300), {}, taken);
    EXPECT_EQ(std::ranges::count(taken, corner), 0) << i;
    taken.push_back(corner);
  }
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

TEST(LockedBounds, FollowTheLockedEdges) {
  const std::tuple<Locks, QSize, QRect> rows[] = {
      {Lock::Right | Lock::Bottom, {200, 150}, {110, 70, 30, 40}},
      {Lock::Left | Lock::Top | Lock::Right | Lock::Bottom, {200, 150}, {10, 20, 130, 90}},
      {Lock::Left | Lock::Top | Lock::Right | Lock::Bottom, {50, 50}, {10, 20, 0, 0}},
      {{}, {50, 50}, {10, 20, 30, 40}},
  };
  for (const auto& [locks, after, bounds] : rows)
    EXPECT_EQ(LockedBounds({10, 20, 30, 40}, {100, 100}, after, locks), bounds);
}

TEST(SheetCorner, StaysOnTheScreen) {
  const std::tuple<QSize, QRect, QPoint> rows[] = {
      {{100, 50}, {200, 100, 200, 200}, {250, 100}},
      {{100, 50}, {-90, 280, 200, 200}, {0, 250}},
      {{900, 50}, {200, 100, 200, 200}, {0, 100}},
  };
  for (const auto& [size, parent, corner] : rows) EXPECT_EQ(SheetCorner(size, parent, {0, 0, 400, 300}), corner);
}

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
  EXPECT_TRUE(Events().starts_with("Open;")) << "no Resized before";
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
  EXPECT_FALSE(window.isNull()) << "destroyed by the event loop";
  DestroyClosed();
  EXPECT_TRUE(window.isNull());
  EXPECT_EQ(Events(), "CancelClose, quitting;CancelClose;");
}

TEST_F(WindowTest, RemembersItsBoundsBeforeFullScreen) {
  RecordingWindow& window = *NewWindow();
  window.ToggleFullScreen();
  window.setWindowState(Qt::WindowNoState);
  window.SetWidth(310);
  window.setWindowState(Qt::WindowFullScreen);
  EXPECT_EQ(window.WindowedBounds().width(), 300) << "the window manager entered full screen twice";
}

TEST_F(WindowTest, SizeIsLimitedSoThatItsPictureFitsIntoMemory) {
  RecordingWindow& window = *NewWindow();
  window.hide();
  window.SetWidth(32000);
  window.SetHeight(32000);
  EXPECT_EQ(QSize(window.Width(), window.Height()), QSize(16384, 4096));
  EXPECT_TRUE(Events().ends_with("Resized;Resized;")) << "while hidden, too";
}

TEST_F(WindowTest, ListRunsFromFrontToBack) {
  auto *a = NewWindow(), *b = NewWindow(), *c = NewWindow();
  b->Show();
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(a, &activated);
  const Window* const order[] = {a, b, c};
  for (Int32 i = 0; i < 3; ++i) EXPECT_EQ(&WindowAt(i), order[i]) << i;
  a->hide();
  EXPECT_TRUE(a->Close());
  record.clear();
  QCoreApplication::sendEvent(a, &activated);
  a->Show();
  a->Close();
  EXPECT_EQ(record, "") << "a closed window raises no events";
  EXPECT_EQ(&WindowAt(0), b) << "a closed window leaves the list";
  EXPECT_THROW((void)WindowAt(2), Fault);
}

}  // namespace
}  // namespace sumlet
