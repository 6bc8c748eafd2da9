// Perspective, Pinch, Ripple and Swirl: each is a map from the result's pixels to the
// source's, built lazily from libvips' coordinate image and resampled by mapim.
#include "imaging/Operations.h"
#include "imaging/ops/OpsInternal.h"

#include <cmath>

namespace imaging::ops {

using detail::Clamp;
using vips::VImage;

namespace {

struct Centre {
  double X, Y, Radius;  // radius: half the shorter side
};

Centre CentreOf(const VImage& x, const VImage& y) {
  return {(x.width() - 1) / 2.0, (y.height() - 1) / 2.0, std::max(1, std::min(x.width(), x.height())) / 2.0};
}

VImage Distance(const VImage& dx, const VImage& dy) { return (dx * dx + dy * dy).pow(0.5); }

}  // namespace

Image Perspective(const Image& image, PerspectiveDirection direction, int amount) {
  const double narrowing = Clamp(amount, 0, 100) / 100.0 * 0.8;  // the far edge keeps 20 % at 100
  if (narrowing == 0) return image;
  return detail::Warp(image, [=](const VImage& x, const VImage& y) {
    const Centre c = CentreOf(x, y);
    const bool vertical = direction == PerspectiveDirection::BottomToTop || direction == PerspectiveDirection::TopToBottom;
    const VImage& along = vertical ? y : x;
    const double span = std::max(1, (vertical ? y.height() : x.width()) - 1);
    const bool farAtStart = direction == PerspectiveDirection::BottomToTop || direction == PerspectiveDirection::RightToLeft;
    const VImage far = farAtStart ? 1 - along / span : along / span;  // 1 at the narrowed edge
    const VImage scale = 1 - far * narrowing;
    if (vertical) return ((x - c.X) / scale + c.X).bandjoin(y);
    return x.bandjoin((y - c.Y) / scale + c.Y);
  });
}

Image Pinch(const Image& image, int amount) {
  const double power = Clamp(amount, -100, 100) / 200.0;  // half of GIMP's range: no singularity at the centre
  if (power == 0) return image;
  return detail::Warp(image, [=](const VImage& x, const VImage& y) {
    const Centre c = CentreOf(x, y);
    const VImage dx = x - c.X, dy = y - c.Y;
    const VImage d = Distance(dx, dy) / c.Radius;
    // GIMP's pinch: a source radius of r sin(90 d)^-amount inside the circle.
    const VImage factor = ((d < 1e-6).ifthenelse(1e-6, d) * 90).sin().pow(-power);
    const VImage inside = d < 1;
    return inside.ifthenelse(dx * factor + c.X, x).bandjoin(inside.ifthenelse(dy * factor + c.Y, y));
  });
}

Image Ripple(const Image& image, int frequency, int intensity, RippleDirection direction) {
  const double waves = Clamp(frequency, 1, 100);
  const int strength = Clamp(intensity, 1, 100);
  return detail::Warp(image, [=](const VImage& x, const VImage& y) {
    const double amplitude = strength * std::min(x.width(), x.height()) / 1000.0;  // up to a tenth of the shorter side
    if (direction == RippleDirection::Horizontal) {
      return x.bandjoin(y + (x * (360 * waves / x.width())).sin() * amplitude);
    }
    return (x + (y * (360 * waves / y.height())).sin() * amplitude).bandjoin(y);
  });
}

Image Swirl(const Image& image, int degrees) {
  const double angle = Clamp(degrees, -1000, 1000);
  if (angle == 0) return image;
  return detail::Warp(image, [=](const VImage& x, const VImage& y) {
    const Centre c = CentreOf(x, y);
    const VImage dx = x - c.X, dy = y - c.Y;
    const VImage d = Distance(dx, dy) / c.Radius;
    // ImageMagick's swirl: the full angle at the centre, fading as (1 - d)^2 to the circle.
    const VImage turn = (d < 1).ifthenelse((1 - d) * (1 - d) * angle, 0.0);
    const VImage cosine = turn.cos(), sine = turn.sin();
    return (dx * cosine - dy * sine + c.X).bandjoin(dx * sine + dy * cosine + c.Y);
  });
}

}  // namespace imaging::ops
