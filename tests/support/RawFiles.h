#pragma once
// Camera files for tests, made by independent tools. RAW: libvips' commands draw the sensor's
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

// A camera's JPEG written by ImageMagick at `size` ("1024x768!") with halved chroma at
// quality 85 (whole 16-pixel blocks where the sides are multiples of 16), camera facts by
// exiftool, an Adobe RGB profile and `orientation`; empty when a tool failed.
QString MakeCameraJpeg(const QString& path, const QString& size, int orientation = 1);

}  // namespace testing_support
