#include <gtest/gtest.h>

#include "framework/ui/application.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const sumlet::Application application;
  return RUN_ALL_TESTS();
}
