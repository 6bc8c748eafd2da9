// Flip, Mirror, Rotate, Resize and Crop.
#include "imaging/Operations.h"
#include "imaging/ops/OpenCvBridge.h"
#include "imaging/ops/OpsInternal.h"

#include <algorithm>
#include <cstdint>
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

namespace {

// The values of x for which a x + b lies within [low, high], widened to whole columns.
detail::ColumnSpan Solve(double a, double b, double low, double high) {
  if (std::abs(a) < 1e-12) return b >= low && b <= high ? detail::ColumnSpan{INT32_MIN / 2, INT32_MAX / 2} : detail::ColumnSpan{0, 0};
  const double first = std::min((low - b) / a, (high - b) / a), last = std::max((low - b) / a, (high - b) / a);
  return {int(std::floor(std::max(first, -1e9))), int(std::ceil(std::min(last, 1e9))) + 1};
}

// The turn as the canvas sees it: `Back` takes a canvas point into the picture.
struct Turn {
  cv::Matx23d Back;
  cv::Size Picture, Canvas;

  // The canvas columns of row y that take anything from the picture, a pixel to spare;
  // every other one is white.
  detail::ColumnSpan Covered(int y) const {
    const double w = Picture.width, h = Picture.height;
    const detail::ColumnSpan across = Solve(Back(0, 0), Back(0, 1) * y + Back(0, 2), -2, w + 1);
    const detail::ColumnSpan down = Solve(Back(1, 0), Back(1, 1) * y + Back(1, 2), -2, h + 1);
    return {std::clamp(std::max(across.First, down.First), 0, Canvas.width), std::clamp(std::min(across.Last, down.Last), 0, Canvas.width)};
  }
};

// Bands of rows on every core; in each, only the columns the picture covers are sampled and
// the corners are filled white, where OpenCV would test every one of them pixel by pixel.
void TurnInBands(const Turn& turn, const cv::Mat& from, cv::Mat& to, const cv::Scalar& white) {
  constexpr int kBandRows = 32;
  const int height = to.rows, width = to.cols;
  cv::parallel_for_(cv::Range(0, (height + kBandRows - 1) / kBandRows), [&](const cv::Range& bands) {
    for (int band = bands.start; band < bands.end; ++band) {
      const int top = band * kBandRows, bottom = std::min(height, top + kBandRows);
      const detail::ColumnSpan span = detail::BandSpan(top, bottom, width, [&turn](int y) { return turn.Covered(y); });
      cv::Mat rows = to.rowRange(top, bottom);
      if (span.First >= span.Last) {
        rows.setTo(white);
        continue;
      }
      rows.colRange(0, span.First).setTo(white);
      rows.colRange(span.Last, width).setTo(white);
      cv::Matx23d back = turn.Back;  // from the band's own origin
      back(0, 2) += back(0, 0) * span.First + back(0, 1) * top;
      back(1, 2) += back(1, 0) * span.First + back(1, 1) * top;
      cv::Mat target = rows.colRange(span.First, span.Last);
      cv::warpAffine(from, target, back, target.size(), cv::INTER_LINEAR | cv::WARP_INVERSE_MAP, cv::BORDER_CONSTANT, white);
    }
  });
}

}  // namespace

// The turned picture on a canvas that just holds it, the corners white. OpenCV's warpAffine
// samples it bilinearly on both cores, several times sooner than libvips' rotate on a
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
    const Turn turn{cv::Matx23d(c, s, c * left + s * top, -s, c, -s * left + c * top), cv::Size(in.width(), in.height()),
                    cv::Size(width, height)};
    return detail::ThroughOpenCv(in, [&](const cv::Mat& from, cv::Mat& to) { TurnInBands(turn, from, to, cv::Scalar::all(WhiteOf(in))); },
                                 turn.Canvas);
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
