#include "framework/ui/window.h"

#include <QLayout>
#include <QMenuBar>

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
}

class RecordingWindow final : public BaseWindow {
 public:
  explicit RecordingWindow(std::string* record, bool withMenuBar = false) : record_(record), withMenuBar_(withMenuBar) {
    Create();
  }
  bool refuses = false;

 protected:
  void Layout() override {
    Note("Layout");
    if (withMenuBar_) {
      auto* bar = new QMenuBar;
      bar->addMenu("File");
      layout()->setMenuBar(bar);
    }
    SetSizeLimits({64, 64}, {800, 700});
    SetWidth(300);
    SetHeight(200);
  }
  void CreateControls() override { Note("Controls"); }
  void AddMenuHandlers() override { Note("Handlers"); }
  void Event_Open() override { Note("Open"); }
  void Event_Resized() override { Note("Resized"); }
  void Event_Moved() override { Note("Moved"); }
  bool Event_CancelClose(bool appQuitting) override {
    Note(appQuitting ? "CancelClose, quitting" : "CancelClose");
    return refuses;
  }
  void Minimize() override { Note("Minimize"); }
  void Restore() override { Note("Restore"); }

 private:
  void Note(const char* event) { *record_ += std::string(event) + ";"; }
  std::string* record_;
  bool withMenuBar_;
};

class WindowTest : public WindowFixture {
 protected:
  std::string record;
};

TEST_F(WindowTest, RaisesItsEventsInOrder) {
  const QPointer<RecordingWindow> window = new RecordingWindow(&record);
  const auto expect = [&](const char* events) {
    QCoreApplication::processEvents();
    EXPECT_EQ(record, events);
    record.clear();
  };
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(record.starts_with("Layout;Controls;Handlers;Open;")) << record;
  EXPECT_EQ(record.find("Resized"), std::string::npos);
  QCoreApplication::processEvents();
  record.clear();
  window->SetWidth(310);
  expect("Resized;");
  window->SetWidth(310);
  expect("");
  window->SetLeft(window->Left() + 5);
  expect("Moved;");
  for (const bool minimized : {true, false}) {
    window->setWindowState(minimized ? Qt::WindowMinimized : Qt::WindowNoState);
    EXPECT_EQ(window->Minimized, minimized);
    expect(minimized ? "Minimize;" : "Restore;");
  }
  for (const bool refuses : {true, false}) {
    window->refuses = refuses;
    EXPECT_EQ(window->Close(refuses), !refuses);
    EXPECT_EQ(WindowCount(), refuses ? 1 : 0);
  }
  EXPECT_FALSE(window.isNull()) << "it lives until control is back at the event loop";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
  expect("CancelClose, quitting;CancelClose;");
}

TEST_F(WindowTest, SizeIsThatOfTheContent) {
  for (const bool withMenuBar : {false, true}) {
    auto& window = *new RecordingWindow(&record, withMenuBar);
    const std::pair<QSize, QSize> wantedAndGot[] = {
        {{310, 210}, {310, 210}}, {{1, -5}, {64, 64}}, {{9999, 9999}, {800, 700}}};
    for (const bool visible : {true, false}) {
      window.setVisible(visible);
      for (const auto& [wanted, got] : wantedAndGot) {
        window.SetWidth(wanted.width());
        window.SetHeight(wanted.height());
        EXPECT_EQ(QSize(window.Width(), window.Height()), got);
        EXPECT_EQ(window.height() > got.height(), withMenuBar);
      }
    }
  }
}

TEST_F(WindowTest, ListRunsFromFrontToBack) {
  auto *a = new RecordingWindow(&record), *b = new RecordingWindow(&record), *c = new RecordingWindow(&record);
  const auto expect = [&](const std::vector<RecordingWindow*>& order) {
    ASSERT_EQ(WindowCount(), static_cast<Int32>(order.size()));
    for (Int32 i = 0; i < WindowCount(); ++i) EXPECT_EQ(&WindowAt(i), order[static_cast<std::size_t>(i)]);
  };
  expect({c, b, a});
  b->Show();
  expect({b, c, a});
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(a, &activated);
  b->hide();
  expect({a, b, c});
  b->setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(b->Close()) << "a hidden window closes like any other";
  expect({a, c});
  record.clear();
  QCoreApplication::sendEvent(b, &activated);
  b->Show();
  expect({a, c});
  b->Close();
  EXPECT_EQ(record, "") << "a closed window does not come back, nor does it raise events";
  delete b;
  EXPECT_THROW((void)WindowAt(2), Fault);
}

}  // namespace
}  // namespace sumlet
