// One QApplication on the offscreen platform for every test binary.
#include "imaging/Loader.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir cache;  // thumbnails the tests make stay out of the user's cache
  qputenv("XDG_CACHE_HOME", cache.path().toLocal8Bit());
  const QTemporaryDir data;  // so is what they move to the Trash
  qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
  const QTemporaryDir config;  // and the desktop settings they change
  qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  imaging::Initialize();
  return RUN_ALL_TESTS();
}
