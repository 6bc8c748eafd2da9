#pragma once
// Camera RAW files for tests, made by independent tools: libvips' commands draw the sensor's
// Bayer mosaic of a picture, libtiff's tiffset marks it as a colour filter array, exiftool
// writes the DNG and camera tags, ImageMagick and tiffcp add the preview. No code of ours
// writes an image (only the preview's strip is pointed at a whole JPEG).

#include <QString>

namespace testing_support {

struct DngRecipe {
  QString Source;          // the scene the camera saw: an 8-bit RGB picture
  int Orientation = 1;     // EXIF orientation
  QString PreviewJpeg;     // embedded as the camera's preview when not empty
};

// The DNG written at `path`; an empty string when a tool failed.
QString MakeDng(const QString& path, const DngRecipe& recipe);

}  // namespace testing_support
