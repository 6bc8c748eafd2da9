// Perspective, Pinch, Ripple and Swirl: each is a map from the result's pixels to the
// source's, which OpenCV's remap follows (detail::Remapped).
#include "imaging/Operations.h"
#include "imaging/ops/OpenCvBridge.h"
#include "imaging/ops/OpsInternal.h"

#include <opencv2/imgproc.hpp>

#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace imaging::ops {

using detail::Clamp;

namespace {

using Point = detail::MapPoint;

struct Centre {
  double X, Y, Radius;  // radius: half the shorter side
};

Centre CentreOf(int width, int height) { return {(width - 1) / 2.0, (height - 1) / 2.0, std::max(1, std::min(width, height)) / 2.0}; }

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

// A smooth function of the distance from the centre (0 there, 1 on the circle), tabulated
// every quarter of a pixel and read by linear interpolation: a square root a pixel instead
// of a sine and a power, and within a thousandth of a pixel of the exact map.
class RadialTable {
 public:
  RadialTable(double radius, const std::function<double(double d)>& f) : steps_(std::max(4, int(std::ceil(radius * 4)))) {
    values_.resize(size_t(steps_) + 2);
    for (int i = 0; i <= steps_ + 1; ++i) values_[size_t(i)] = f(std::min(1.0, double(i) / steps_));
  }
  double At(double d) const {
    const double at = d * steps_;
    const int i = std::min(int(at), steps_);
    const double t = at - i;
    return values_[size_t(i)] * (1 - t) + values_[size_t(i) + 1] * t;
  }

 private:
  int steps_;
  std::vector<double> values_;
};

// The picture resampled through the map: bilinear, white beyond the edges.
template <typename Source, typename Changed = std::nullptr_t>
Image Warp(const Image& image, const Source& source, const Changed& changed = nullptr) {
  return detail::OnWholeImage(image, [&source, &changed](const vips::VImage& picture) {
    return detail::Remapped(picture, source, cv::INTER_LINEAR, cv::BORDER_CONSTANT, cv::Scalar::all(WhiteOf(picture)), changed);
  });
}

// The columns of row y inside the circle: a map that moves only those leaves the rest.
detail::ColumnSpan InsideCircle(const Centre& c, int y) {
  const double dy = y - c.Y;
  if (std::abs(dy) >= c.Radius) return {0, 0};
  const double half = std::sqrt(c.Radius * c.Radius - dy * dy);
  return {int(std::floor(c.X - half)), int(std::ceil(c.X + half)) + 1};
}

}  // namespace

Image Perspective(const Image& image, PerspectiveDirection direction, int amount) {
  const double narrowing = Clamp(amount, 0, 100) / 100.0 * 0.8;  // the far edge keeps 20 % at 100
  if (narrowing == 0) return image;
  const Centre c = CentreOf(image.Width(), image.Height());
  const bool vertical = direction == PerspectiveDirection::BottomToTop || direction == PerspectiveDirection::TopToBottom;
  const bool farAtStart = direction == PerspectiveDirection::BottomToTop || direction == PerspectiveDirection::RightToLeft;
  const double span = std::max(1, (vertical ? image.Height() : image.Width()) - 1);
  return Warp(image, [=](int x, int y) {
    const double along = (vertical ? y : x) / span;
    const double scale = 1 - (farAtStart ? 1 - along : along) * narrowing;  // the far edge narrowed most
    if (vertical) return Point{float((x - c.X) / scale + c.X), float(y)};
    return Point{float(x), float((y - c.Y) / scale + c.Y)};
  });
}

Image Pinch(const Image& image, int amount) {
  const double power = Clamp(amount, -100, 100) / 200.0;  // half of GIMP's range: no singularity at the centre
  if (power == 0) return image;
  const Centre c = CentreOf(image.Width(), image.Height());
  // GIMP's pinch: a source radius of r sin(90 d)^-amount inside the circle.
  const auto factor = [power](double d) { return std::pow(std::sin(Radians(std::max(d, 1e-6) * 90)), -power); };
  const RadialTable table(c.Radius, [&factor](double d) { return d * factor(d); });  // the source's distance: smooth
  const double nearCentre = 4 / c.Radius;  // within a few pixels, where d alone is steep, exactly
  return Warp(image, [=, &table](int x, int y) {
    const double dx = x - c.X, dy = y - c.Y;
    const double d = std::sqrt(dx * dx + dy * dy) / c.Radius;
    if (d >= 1) return Point{float(x), float(y)};
    const double scale = d < nearCentre ? factor(d) : table.At(d) / d;
    return Point{float(dx * scale + c.X), float(dy * scale + c.Y)};
  }, [c](int y) { return InsideCircle(c, y); });
}

Image Ripple(const Image& image, int frequency, int intensity, RippleDirection direction) {
  const double waves = Clamp(frequency, 1, 100);
  const int strength = Clamp(intensity, 1, 100);
  const double amplitude = strength * std::min(image.Width(), image.Height()) / 1000.0;  // up to a tenth of the shorter side
  const bool horizontal = direction == RippleDirection::Horizontal;
  const int across = horizontal ? image.Width() : image.Height();
  std::vector<float> shift(static_cast<size_t>(across));  // the wave, once for each column (or row)
  for (int i = 0; i < across; ++i) shift[size_t(i)] = float(std::sin(Radians(360 * waves / across) * i) * amplitude);
  return Warp(image, [&shift, horizontal](int x, int y) {
    if (horizontal) return Point{float(x), y + shift[size_t(x)]};
    return Point{x + shift[size_t(y)], float(y)};
  });
}

Image Swirl(const Image& image, int degrees) {
  const double angle = Clamp(degrees, -1000, 1000);
  if (angle == 0) return image;
  const Centre c = CentreOf(image.Width(), image.Height());
  // ImageMagick's swirl: the full angle at the centre, fading as (1 - d)^2 to the circle.
  const auto turn = [angle](double d) { return Radians((1 - d) * (1 - d) * angle); };
  const RadialTable cosines(c.Radius, [&turn](double d) { return std::cos(turn(d)); });
  const RadialTable sines(c.Radius, [&turn](double d) { return std::sin(turn(d)); });
  return Warp(image, [=, &cosines, &sines](int x, int y) {
    const double dx = x - c.X, dy = y - c.Y;
    const double d = std::sqrt(dx * dx + dy * dy) / c.Radius;
    if (d >= 1) return Point{float(x), float(y)};
    const double cosine = cosines.At(d), sine = sines.At(d);
    return Point{float(dx * cosine - dy * sine + c.X), float(dx * sine + dy * cosine + c.Y)};
  }, [c](int y) { return InsideCircle(c, y); });
}

}  // namespace imaging::ops
