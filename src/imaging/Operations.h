// The editing operations' pixels, on libvips. Each takes an image and gives a
// new one; the input is never changed. Parameters are in the dialogs' units and are
// clamped to their ranges; an operation that cannot be done (libvips fails, memory runs
// out) throws OperationFailed, saying why. docs/operations.md gives every definition.
#pragma once

#include "imaging/Image.h"

#include <QRect>

#include <stdexcept>

namespace imaging::ops {

class OperationFailed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;  // what(): the reason in a few words, UTF-8
};

// Colours (ops/Colour.cpp): tone curves applied through one lookup table per band.
Image Brightness(const Image& image, int amount);      // -100 .. 100: adds amount x 2.55
Image Contrast(const Image& image, int amount);        // -100 .. 100: slope about mid-grey
Image Gamma(const Image& image, double gamma);         // 0.01 .. 10.00: 255 (v / 255)^(1 / gamma)
Image RedGreenBlue(const Image& image, int red, int green, int blue);  // each -100 .. 100, added x 2.55
Image Solarize(const Image& image, int level);         // 0 .. 255: values >= 256 - level inverted
Image Negative(const Image& image);                    // 255 - value; alpha kept
Image Parabolic(const Image& image, bool concave);     // concave brightens, convex darkens
Image HueSaturationLuminance(const Image& image, int hue, int saturation, int luminance);  // each -100 .. 100
Image Equalize(const Image& image);                    // each colour band's histogram equalised
Image GrayScale(const Image& image);                   // Rec. 601 luma in all three bands
Image RedEyeRemoval(const Image& image, const QRect& area);  // in pixels, cut to the image

// Colour depth (ops/Depth.cpp): 1 bit reduces to black and white, 4 or 8 bits to 16 or
// 256 colours chosen by libimagequant, with Floyd-Steinberg dithering; 24 bits drops
// alpha onto white.
Image ColorDepth(const Image& image, int bits);

// Filters (ops/Filters.cpp).
Image Blend(const Image& image, int amount);           // 0 .. 100: mixed with its 3 x 3 mean
Image Blur(const Image& image);                        // a Gaussian of sigma 1
Image Dilate(const Image& image);                      // 3 x 3 maximum
Image Erode(const Image& image);                       // 3 x 3 minimum
Image Median(const Image& image);                      // 3 x 3 median
Image Mosaic(const Image& image, int block);           // 1 .. 63: block x block means
Image MotionBlur(const Image& image, int horizontal, int vertical, int intensity);  // -10..10, -10..10, 1..25
Image Sharpen(const Image& image, int level);          // 1 .. 9: unsharp mask, amount level / 4
Image Soften(const Image& image, int level);           // 1 .. 9: Gaussian of sigma level / 2

// Random (ops/Random.cpp): reproducible, seeded from the image size.
Image Diffuse(const Image& image);                     // each pixel from a random one within 2
Image Noise(const Image& image, int frequency, int intensity);  // 1 .. 20 (x 5 % of pixels), 1 .. 128

// Geometry (ops/Geometry.cpp).
Image Flip(const Image& image);                        // top to bottom
Image Mirror(const Image& image);                      // left to right
Image RotateQuarter(const Image& image, int quarters); // clockwise, by 90 degrees each
Image Rotate(const Image& image, double degrees);      // clockwise; the canvas grows, white around
Image Resize(const Image& image, int width, int height);  // Lanczos-3
Image Crop(const Image& image, const QRect& area);     // in pixels, cut to the image

// Warps (ops/Warps.cpp), through libvips' mapim; white outside the source.
enum class PerspectiveDirection { BottomToTop = 0, TopToBottom = 1, LeftToRight = 2, RightToLeft = 3 };
Image Perspective(const Image& image, PerspectiveDirection direction, int amount);  // 0 .. 100
Image Pinch(const Image& image, int amount);           // -100 .. 100
enum class RippleDirection { Horizontal = 0, Vertical = 1 };
Image Ripple(const Image& image, int frequency, int intensity, RippleDirection direction);  // 1..100, 1..100
Image Swirl(const Image& image, int degrees);          // -1000 .. 1000 at the centre

}  // namespace imaging::ops
