// One QApplication on the offscreen platform for every test binary.
#include "imaging/Loader.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  imaging::Initialize();
  return RUN_ALL_TESTS();
}
