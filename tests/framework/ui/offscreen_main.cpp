#include <gtest/gtest.h>

#include "framework/ui/application.h"

// The argument, where there is one, is the scale of the screen: 2 gives each pixel of a window four of the screen.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (argc > 1) qputenv("QT_SCALE_FACTOR", argv[1]);
  const sumlet::Application application("session_key");
  return RUN_ALL_TESTS();
}
