// What the tests of windows share: time stands still, the settings have a folder of their own, and in the end all
// windows are gone.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <map>

#include "framework/ui/timer.h"
#include "framework/ui/window.h"

namespace sumlet {

// A clock that stands still until the test moves it.
class ManualClock final : public Clock {
 public:
  ManualClock() { SetClock(this); }
  ~ManualClock() override { SetClock(nullptr); }

  void Arm(Timer& timer, Int32 milliseconds) override { due_[&timer] = now_ + milliseconds; }
  void Disarm(Timer& timer) override { due_.erase(&timer); }

  // Lets time pass; what falls due meanwhile expires.
  void Advance(Int32 milliseconds) {
    for (; milliseconds > 0; --milliseconds) {
      ++now_;
      for (const auto& [timer, due] : std::map(due_))
        if (due <= now_ && due_.erase(timer) == 1) timer->Expire();
    }
  }

 private:
  Int32 now_ = 0;
  std::map<Timer*, Int32> due_;
};

class WindowFixture : public testing::Test {
 protected:
  WindowFixture() {
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) qputenv(variable, folder.path().toUtf8());
  }
  void TearDown() override {
    CloseAll();
    QApplication::setPalette(QPalette());
  }
  static void CloseAll() {
    while (WindowCount() > 0) WindowAt(0).Close(true);
    DestroyClosed();
  }
  static void DestroyClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
  static void SetDarkDesktop() { QApplication::setPalette(QColor(0x30, 0x30, 0x30)); }
  // The window in front, where it is one of that class.
  template <class WindowClass>
  static WindowClass* Front() {
    return WindowCount() == 0 ? nullptr : dynamic_cast<WindowClass*>(&WindowAt(0));
  }

  QTemporaryDir folder;
  ManualClock clock;
};

}  // namespace sumlet
