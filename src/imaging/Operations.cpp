#include "imaging/Operations.h"

#include "imaging/ImageInternal.h"

namespace imaging::ops {

namespace {

// Runs a libvips pipeline on the colour bands, keeping alpha untouched; on a libvips
// error the image is given back unchanged (Part 4.3: a failing call is not reported).
template <typename Colour>
Image OnColourBands(const Image& image, Colour colour) {
  try {
    const vips::VImage& in = image.Internal().image;
    vips::VImage rgb = in.bands() == 4 ? in.extract_band(0, vips::VImage::option()->set("n", 3)) : in;
    vips::VImage out = colour(rgb).cast(VIPS_FORMAT_UCHAR);
    if (in.bands() == 4) out = out.bandjoin(in.extract_band(3));
    return Image::FromInternal(Image::Pixels{out.copy(vips::VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB)).copy_memory()});
  } catch (const vips::VError&) {
    vips_error_clear();
    return image;
  }
}

template <typename Whole>
Image OnWholeImage(const Image& image, Whole whole) {
  try {
    return Image::FromInternal(Image::Pixels{whole(image.Internal().image).copy_memory()});
  } catch (const vips::VError&) {
    vips_error_clear();
    return image;
  }
}

}  // namespace

Image Flip(const Image& image) {
  return OnWholeImage(image, [](const vips::VImage& in) { return in.flip(VIPS_DIRECTION_VERTICAL); });
}

Image Mirror(const Image& image) {
  return OnWholeImage(image, [](const vips::VImage& in) { return in.flip(VIPS_DIRECTION_HORIZONTAL); });
}

Image Negative(const Image& image) {
  return OnColourBands(image, [](const vips::VImage& rgb) { return rgb.invert(); });
}

Image GrayScale(const Image& image) {
  return OnColourBands(image, [](const vips::VImage& rgb) {
    const vips::VImage luma = rgb.recomb(vips::VImage::new_matrixv(1, 3, 0.299, 0.587, 0.114)).round(VIPS_OPERATION_ROUND_RINT);
    return luma.bandjoin({luma, luma});
  });
}

Image Blur(const Image& image) {
  return OnColourBands(image, [](const vips::VImage& rgb) { return rgb.gaussblur(1.0); });
}

Image Brightness(const Image& image, int amount) {
  return OnColourBands(image, [amount](const vips::VImage& rgb) { return rgb.linear(1.0, amount * 2.55).round(VIPS_OPERATION_ROUND_RINT); });
}

Image RotateQuarter(const Image& image, int quarters) {
  static constexpr VipsAngle kAngles[] = {VIPS_ANGLE_D0, VIPS_ANGLE_D90, VIPS_ANGLE_D180, VIPS_ANGLE_D270};
  const VipsAngle angle = kAngles[((quarters % 4) + 4) % 4];
  return OnWholeImage(image, [angle](const vips::VImage& in) { return in.rot(angle); });
}

}  // namespace imaging::ops
