#pragma once
// The one loader of an image file for every view: the picture and its size at 100 %
// in twips, which every zoom computation starts from.

#include "base/Twips.h"
#include "imaging/Image.h"

#include <QString>

#include <optional>

namespace files {

struct LoadedImage {
  imaging::Image Picture;
  base::NaturalSize Natural;
  int PaletteBits = 0;  // the file's palette depth, kept when the image is saved
};

std::optional<LoadedImage> LoadImageFile(const QString& path, const base::ScreenMetrics& metrics);

}  // namespace files
