#pragma once
// What an Image holds, for the files of src/imaging/ only.

#include "imaging/Image.h"

#include <vips/vips8>

namespace imaging {

struct Image::Pixels {
  vips::VImage image;  // uchar sRGB, 3 or 4 bands, in memory
};

// Any decoded image to the form an Image holds: sRGB, 8 bits, 3 bands or 4 with alpha.
vips::VImage Normalized(vips::VImage image);

inline Image Wrap(vips::VImage image) { return Image::FromInternal(Image::Pixels{Normalized(image).copy_memory()}); }

}  // namespace imaging
