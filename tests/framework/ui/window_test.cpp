#include "framework/ui/window.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLayout>
#include <QMenuBar>

#include "framework/fault.h"
#include "framework/ui/base_window.h"

namespace sumlet {
namespace {

constexpr Locks allEdges = Lock::Left | Lock::Top | Lock::Right | Lock::Bottom;

TEST(LockedBounds, FollowTheEdges) {
  const QRect control(10, 20, 30, 40);
  const struct {
    Locks locks;
    QSize after;  // of a content of 100 x 100
    QRect bounds;
  } rows[] = {
      {{}, {200, 300}, control},
      {Lock::Right, {200, 300}, {110, 20, 30, 40}},
      {Lock::Bottom, {200, 300}, {10, 220, 30, 40}},
      {Lock::Left | Lock::Right, {200, 300}, {10, 20, 130, 40}},
      {allEdges, {200, 300}, {10, 20, 130, 240}},
      {allEdges, {90, 80}, {10, 20, 20, 20}},
      {allEdges, {10, 10}, {10, 20, 0, 0}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(LockedBounds(control, {100, 100}, row.after, row.locks), row.bounds) << row.locks.toInt();
}

TEST(StaggeredCorner, StaysOnTheScreen) {
  const QRect screen(100, 50, 400, 300);
  const struct {
    QSize size;
    std::optional<QPoint> previous;
    QPoint corner;
  } rows[] = {
      {{200, 200}, {}, {124, 74}},
      {{200, 200}, QPoint(148, 130), {172, 74}},   // would leave at the bottom
      {{200, 200}, QPoint(290, 74), {124, 98}},    // would leave at the right
      {{200, 200}, QPoint(2000, 74), {124, 74}},   // the one before was on a screen that is gone
      {{4000, 3000}, QPoint(124, 74), {100, 50}},  // none
  };
  for (const auto& row : rows) EXPECT_EQ(StaggeredCorner(row.size, screen, row.previous), row.corner);
}

class RecordingWindow final : public BaseWindow {
 public:
  explicit RecordingWindow(std::string* record, bool withMenuBar = false) : record_(record), withMenuBar_(withMenuBar) {
    Create();
  }
  bool refuses = false;
  QWidget* control = nullptr;

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
    SetPlacement(Placement::Staggered);
  }
  void CreateControls() override {
    Note("Controls");
    control = new QWidget(Content());
    AddControl(*control, {-1, -1, 302, 202}, allEdges);
  }
  void AddMenuHandlers() override { Note("Handlers"); }
  void Event_Open() override { Note(isVisible() ? "Open, visible" : "Open"); }
  void Event_Resized() override { Note("Resized"); }
  void Event_Moved() override { Note("Moved"); }
  bool Event_CancelClose(bool appQuitting) override {
    Note(appQuitting ? "CancelClose, quitting" : "CancelClose");
    return refuses;
  }
  void Maximize() override { Note("Maximize"); }
  void Minimize() override { Note("Minimize"); }
  void Restore() override { Note("Restore"); }

 private:
  void Note(const char* event) { *record_ += std::string(event) + ";"; }
  std::string* record_;
  bool withMenuBar_;
};

TEST(Window, RaisesItsEventsInOrder) {
  std::string record;
  const QPointer<RecordingWindow> window = new RecordingWindow(&record);
  const auto expect = [&](const char* events) {
    QCoreApplication::processEvents();
    EXPECT_EQ(record, events);
    record.clear();
  };
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(record.substr(0, record.find("Open;") + 5), "Layout;Controls;Handlers;Open;");
  EXPECT_EQ(record.find("Resized"), std::string::npos);
  QCoreApplication::processEvents();
  record.clear();

  window->SetWidth(310);
  expect("Resized;");
  window->SetWidth(310);
  expect("");
  window->SetLeft(window->Left() + 5);
  expect("Moved;");
  window->setWindowState(Qt::WindowMinimized);
  EXPECT_TRUE(window->Minimized);
  expect("Minimize;");
  window->setWindowState(Qt::WindowNoState);
  EXPECT_FALSE(window->Minimized);
  expect("Restore;");

  window->refuses = true;
  EXPECT_FALSE(window->Close(true));
  EXPECT_EQ(WindowCount(), 1);
  window->refuses = false;
  EXPECT_TRUE(window->Close());
  EXPECT_EQ(WindowCount(), 0);
  EXPECT_FALSE(window.isNull()) << "it lives until control is back at the event loop";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
  expect("CancelClose, quitting;CancelClose;");
}

TEST(Window, SizeIsThatOfTheContent) {
  for (const bool withMenuBar : {false, true}) {
    std::string record;
    RecordingWindow window(&record, withMenuBar);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    const struct {
      QSize wanted;
      QSize got;
    } rows[] = {{{300, 200}, {300, 200}}, {{64, 64}, {64, 64}}, {{1, -5}, {64, 64}}, {{9999, 9999}, {800, 700}}};
    for (const bool visible : {true, false}) {
      window.setVisible(visible);
      for (const auto& row : rows) {
        window.SetWidth(row.wanted.width());
        window.SetHeight(row.wanted.height());
        EXPECT_EQ(QSize(window.Width(), window.Height()), row.got);
        EXPECT_EQ(window.control->geometry(), QRect(QPoint(-1, -1), row.got + QSize(2, 2)));
        if (!visible) continue;
        EXPECT_EQ(window.control->parentWidget()->size(), row.got);
        EXPECT_EQ(window.control->parentWidget()->y() > 0, withMenuBar);
      }
    }
  }
}

TEST(Window, ListRunsFromFrontToBack) {
  std::string record;
  RecordingWindow a(&record), b(&record), c(&record);
  const auto order = [&] {
    std::string names;
    for (Int32 i = 0; i < WindowCount(); ++i) names += &WindowAt(i) == &a ? 'a' : &WindowAt(i) == &b ? 'b' : 'c';
    return names;
  };
  EXPECT_EQ(order(), "cba");
  b.Show();
  EXPECT_EQ(order(), "bca");
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(&a, &activated);
  EXPECT_EQ(order(), "abc");
  b.hide();
  EXPECT_EQ(order(), "abc");
  b.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(b.Close()) << "a hidden window closes like any other";
  EXPECT_EQ(order(), "ac");
  record.clear();
  QCoreApplication::sendEvent(&b, &activated);
  b.Show();
  EXPECT_EQ(order(), "ac") << "a closed window does not come back";
  b.Close();
  EXPECT_EQ(record, "") << "nor raises events";
  EXPECT_THROW((void)WindowAt(2), Fault);
}

}  // namespace
}  // namespace sumlet
