#pragma once
// The natural size record of Part 3.1: the image's size at 100 % in twips, written as
// two whole numbers separated by one blank, width first ("4800 3600"), when an image is
// loaded (Part 5.1, LoadImageFile), and read back by every zoom computation.

#include "app/SettingsStore.h"

#include <QString>

namespace files {

struct NaturalSize {
  float WidthTwips = 0;
  float HeightTwips = 0;
};

QString NaturalSizeRecord(int widthPixels, int heightPixels, const app::ScreenMetrics& metrics);

// The width is the text before the first blank, the height the text after it, each as
// a single-precision number; a record without a blank gives 0 for both.
NaturalSize ReadNaturalSizeRecord(const QString& record);

}  // namespace files
