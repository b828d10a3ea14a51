#include "framework/ui/application.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <QWidget>
#include <vector>

#include "framework/fault.h"
#include "framework/message.h"
#include "framework/text/array.h"
#include "framework/ui/dialogs.h"
#include "framework/ui/qt_text.h"

namespace sumlet {
namespace {

class Alerts {
 public:
  Alerts() {
    previous_ = SetMessageHandler([this](std::string_view text) {
      texts.emplace_back(text);
      if (WhileStanding) WhileStanding();
    });
  }
  ~Alerts() { SetMessageHandler(previous_); }
  std::vector<String> texts;
  std::function<void()> WhileStanding;

 private:
  MessageHandler previous_;
};

// Until whatever was posted meanwhile has run as well.
void ProcessAllEvents() {
  for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
}

class FaultyWidget final : public QWidget {
 protected:
  void paintEvent(QPaintEvent*) override { throw Fault("a key that is not there"); }
};

TEST(Application, AFaultEndsItsEventAndIsTold) {
  Alerts alerts;
  const Array<String> empty;
  bool wentOn = false;
  // An event inside another: only the inner one ends.
  QTimer::singleShot(0, [&] {
    QTimer inner;
    QObject::connect(&inner, &QTimer::timeout, [&] { (void)empty[0]; });
    inner.start(100000);
    QTimerEvent tick(inner.timerId());
    QCoreApplication::sendEvent(&inner, &tick);
    wentOn = true;
    EXPECT_TRUE(alerts.texts.empty()) << "not in the middle of an event";
  });
  ProcessAllEvents();
  EXPECT_TRUE(wentOn);
  EXPECT_EQ(alerts.texts, std::vector<String>{"This could not be done because of an index out of range."});
}

TEST(Application, TellsOneFaultAtATime) {
  Alerts alerts;
  FaultyWidget widget;
  widget.show();
  // What the alert covers is painted again, and fails again.
  alerts.WhileStanding = [&] {
    widget.show();
    ProcessAllEvents();
    widget.hide();
  };
  QCoreApplication::processEvents();
  widget.repaint();
  widget.hide();
  ProcessAllEvents();
  EXPECT_EQ(alerts.texts.size(), 1);
  auto& application = *static_cast<Application*>(QCoreApplication::instance());
  application.RunEvent([] { throw Fault("a stream that is not there"); });
  ProcessAllEvents();
  EXPECT_EQ(alerts.texts.back(), "This could not be done because of a stream that is not there.");
  EXPECT_THROW(application.RunEvent([] { throw std::bad_alloc(); }), std::bad_alloc) << "no fault of the logic";
}

TEST(Dialogs, AlertText) {
  const String word(40, 'w');
  const String lines = [] {
    String text = "1";
    for (int i = 2; i <= 25; ++i) text += "\n" + std::to_string(i);
    return text;
  }();
  const struct {
    String text;
    String shown;
  } rows[] = {
      {"Text can not be empty.", "Text can not be empty."},
      {"<b>bold</b> & more", "<b>bold</b> & more"},
      {"a\r\nb\rc\x01\x7F\td", "a\nb\nc   d"},
      {word + " " + word, word + " " + word},
      {word + word, word + "\u200B" + word},
      {lines, lines.substr(0, lines.find("\n21")) + "…"},
      {String(2000, ' ') + "x", "…"},
      {"a\xFF", "a\uFFFD"},
  };
  for (const auto& row : rows) EXPECT_EQ(FromQString(AlertText(row.text)), row.shown);
  String long_;
  for (int i = 0; i < 100; ++i) long_ += "123 56789 ";
  EXPECT_EQ(FromQString(AlertText(long_)), long_);
  EXPECT_EQ(FromQString(AlertText(long_ + "1")), long_.substr(0, 999) + "…");
  EXPECT_EQ(AlertText(String(999, ' ') + "😀😀").back(), QChar(u'…')) << "no half character";
}

}  // namespace
}  // namespace sumlet
