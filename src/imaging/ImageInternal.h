#pragma once
// What an Image holds, for the files of src/imaging/ only.

#include "imaging/Image.h"

#include <vips/vips8>

namespace imaging {

// Half-size reductions of an image for display, built on demand (DisplayLevels.cpp).
struct DisplayLevelCache;

struct Image::Pixels {
  vips::VImage image;  // uchar sRGB, 3 or 4 bands, in memory
  std::shared_ptr<DisplayLevelCache> levels = MakeDisplayLevelCache();

  static std::shared_ptr<DisplayLevelCache> MakeDisplayLevelCache();
};

// Any decoded image to the form an Image holds: sRGB, 8 bits, 3 bands or 4 with alpha.
vips::VImage Normalized(vips::VImage image);

// Reduced to exactly width x height (each at most the image's) with an adaptive Lanczos-3
// kernel, in memory.
vips::VImage ReduceTo(const vips::VImage& image, int width, int height);

// The file as libvips reads it: a regular file opened once by its exact bytes. Throws
// vips::VError for anything else (a FIFO, a device), so no loader waits on one.
vips::VSource SourceOf(const QString& path);

inline Image Wrap(vips::VImage image) { return Image::FromInternal(Image::Pixels{Normalized(image).copy_memory()}); }

}  // namespace imaging
