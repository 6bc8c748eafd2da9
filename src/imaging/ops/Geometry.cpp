// Flip, Mirror, Rotate, Resize and Crop.
#include "imaging/Operations.h"
#include "imaging/ops/OpenCvBridge.h"
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

// The turned picture on a canvas that just holds it, the corners white. OpenCV's warpAffine
// samples it bicubically on both cores, several times sooner than libvips' rotate on a
// photograph, with the canvas and the placing libvips gives it.
Image Rotate(const Image& image, double degrees) {
  degrees = detail::Clamp(degrees, -180.0, 180.0);
  const double quarters = degrees / 90;
  if (quarters == std::round(quarters)) return RotateQuarter(image, static_cast<int>(quarters));  // exact, no resampling
  return detail::OnWholeImage(image, [degrees](const vips::VImage& in) {
    // A positive angle turns clockwise on screen, as "Right" in the dialog: the picture's
    // point (x, y) goes to (x cos - y sin, x sin + y cos), and its corners give the canvas.
    const double radians = degrees * M_PI / 180, c = std::cos(radians), s = std::sin(radians);
    const double w = in.width(), h = in.height();
    const double left = std::round(std::min({0.0, w * c, -h * s, w * c - h * s}));
    const double top = std::round(std::min({0.0, w * s, h * c, w * s + h * c}));
    const int width = std::max(1, int(std::lround(w * std::abs(c) + h * std::abs(s))));
    const int height = std::max(1, int(std::lround(w * std::abs(s) + h * std::abs(c))));
    const cv::Matx23d back(c, s, c * left + s * top, -s, c, -s * left + c * top);  // from the canvas into the picture
    return detail::ThroughOpenCv(in, [&](const cv::Mat& from, cv::Mat& to) {
      cv::warpAffine(from, to, back, to.size(), cv::INTER_LINEAR | cv::WARP_INVERSE_MAP, cv::BORDER_CONSTANT,
                     cv::Scalar::all(WhiteOf(in)));
    }, cv::Size(width, height));
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
