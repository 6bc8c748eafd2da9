#pragma once
// Camera RAW files for tests, made by independent tools: ImageMagick draws the sensor's
// Bayer mosaic of a picture, libtiff's tiffset marks it as a colour filter array, exiftool
// writes the DNG and camera tags. No code of ours writes any of it.

#include <QString>

namespace testing_support {

struct DngRecipe {
  QString Source;          // the scene the camera saw
  int Orientation = 1;     // EXIF orientation
  QString PreviewJpeg;     // embedded as the camera's preview when not empty
};

// The DNG written at `path`; an empty string when a tool failed.
QString MakeDng(const QString& path, const DngRecipe& recipe);

}  // namespace testing_support
