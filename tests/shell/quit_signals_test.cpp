#include "shell/quit_signals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <csignal>

namespace sumlet {
namespace {

TEST(QuitSignals, ReachTheEventLoop) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    std::signal(signal, SIG_DFL);
    int quits = 0;
    const QuitSignals quitSignals([&] {
      ++quits;
      QCoreApplication::exit(0);
    });
    for (int i = 0; i < 100; ++i) std::raise(signal);
    EXPECT_EQ(quits, 0) << "not inside the signal handler";
    EXPECT_EQ(QCoreApplication::exec(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(quits, 1) << "many signals are one request";
  }
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) EXPECT_EQ(std::signal(signal, SIG_DFL), SIG_IGN);
}

TEST(QuitSignals, LeaveAnIgnoredHangupIgnored) {
  std::signal(SIGHUP, SIG_IGN);
  const QuitSignals quitSignals([] {});
  EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

}  // namespace
}  // namespace sumlet
