// The first operations of Part 4.3's catalogue (those without a dialog), on libvips.
// Each takes an image and gives a new one; the input is never changed.
#pragma once

#include "imaging/Image.h"

namespace imaging::ops {

Image Flip(const Image& image);       // top to bottom
Image Mirror(const Image& image);     // left to right
Image Negative(const Image& image);   // 255 - value in each colour band; alpha kept
Image GrayScale(const Image& image);  // Rec. 601 luma in all three bands; alpha kept
Image Blur(const Image& image);       // a Gaussian of sigma 1
Image Brightness(const Image& image, int amount);  // -100 .. 100: adds amount * 2.55 to every colour band
Image RotateQuarter(const Image& image, int quarters);  // clockwise, by 90 degrees each

}  // namespace imaging::ops
