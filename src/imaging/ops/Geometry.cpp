// Flip, Mirror, Rotate, Resize and Crop.
#include "imaging/Operations.h"
#include "imaging/ops/OpsInternal.h"

#include <cmath>

namespace imaging::ops {

Image Flip(const Image& image) {
  return detail::OnWholeImage(image, [](const vips::VImage& in) { return in.flip(VIPS_DIRECTION_VERTICAL); });
}

Image Mirror(const Image& image) {
  return detail::OnWholeImage(image, [](const vips::VImage& in) { return in.flip(VIPS_DIRECTION_HORIZONTAL); });
}

Image RotateQuarter(const Image& image, int quarters) {
  static constexpr VipsAngle kAngles[] = {VIPS_ANGLE_D0, VIPS_ANGLE_D90, VIPS_ANGLE_D180, VIPS_ANGLE_D270};
  const int turn = ((quarters % 4) + 4) % 4;
  if (turn == 0) return image;
  return detail::OnWholeImage(image, [turn](const vips::VImage& in) { return in.rot(kAngles[turn]); });
}

Image Rotate(const Image& image, double degrees) {
  degrees = detail::Clamp(degrees, -180.0, 180.0);
  const double quarters = degrees / 90;
  if (quarters == std::round(quarters)) return RotateQuarter(image, static_cast<int>(quarters));  // exact, no resampling
  return detail::OnWholeImage(image, [degrees](const vips::VImage& in) {
    const std::vector<double> white(static_cast<size_t>(in.bands()), WhiteOf(in));
    // A positive angle turns clockwise on screen in libvips as in the dialog ("Right").
    return in.rotate(degrees, vips::VImage::option()
                                   ->set("interpolate", vips::VInterpolate::new_from_name("bicubic"))
                                   ->set("background", white));
  });
}

Image Resize(const Image& image, int width, int height) {
  width = std::max(1, width);
  height = std::max(1, height);
  if (width == image.Width() && height == image.Height()) return image;
  return detail::OnWholeImage(image, [width, height](const vips::VImage& in) {
    const double across = double(width) / in.width(), down = double(height) / in.height();
    vips::VImage out = in.resize(across, vips::VImage::option()->set("vscale", down));
    if (out.width() != width || out.height() != height) {  // a rounding pixel either way
      out = out.embed(0, 0, width, height, vips::VImage::option()->set("extend", VIPS_EXTEND_COPY));
    }
    return out;
  });
}

Image Crop(const Image& image, const QRect& area) {
  const QRect inside = area.intersected(QRect(0, 0, image.Width(), image.Height()));
  if (inside.isEmpty()) return image;
  return detail::OnWholeImage(image, [&inside](const vips::VImage& in) {
    return in.extract_area(inside.x(), inside.y(), inside.width(), inside.height());
  });
}

}  // namespace imaging::ops
