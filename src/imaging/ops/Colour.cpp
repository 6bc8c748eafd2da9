// The Colors menu's operations. The tone curves go through a lookup table (one for all
// bands where their curves agree), so each costs one pass over the pixels whatever its formula.
#include "imaging/Operations.h"
#include "imaging/ops/OpenCvBridge.h"
#include "imaging/ops/OpsInternal.h"

#include <cmath>

namespace imaging::ops {

using detail::Clamp;

Image Brightness(const Image& image, int amount) {
  const double offset = Clamp(amount, -100, 100) * 2.55;
  return detail::ThroughCurve(image, [offset](int, double v) { return v + offset; });
}

Image Contrast(const Image& image, int amount) {
  amount = Clamp(amount, -100, 100);
  // Flat grey at -100, a threshold at mid-grey at 100.
  const double slope = amount <= 0 ? 1 + amount / 100.0 : amount == 100 ? 255.0 : 100.0 / (100 - amount);
  return detail::ThroughCurve(image, [slope](int, double v) { return (v - 127.5) * slope + 127.5; });
}

Image Gamma(const Image& image, double gamma) {
  const double exponent = 1 / Clamp(gamma, 0.01, 10.0);
  return detail::ThroughCurve(image, [exponent](int, double v) { return 255 * std::pow(v / 255.0, exponent); });
}

Image RedGreenBlue(const Image& image, int red, int green, int blue) {
  const double offsets[] = {Clamp(red, -100, 100) * 2.55, Clamp(green, -100, 100) * 2.55, Clamp(blue, -100, 100) * 2.55};
  return detail::ThroughCurve(image, [&offsets](int band, double v) { return v + offsets[band]; });
}

Image Solarize(const Image& image, int level) {
  const int threshold = 256 - Clamp(level, 0, 255);
  return detail::ThroughCurve(image, [threshold](int, double v) { return v >= threshold ? 255 - v : v; });
}

Image Negative(const Image& image) {
  return detail::ThroughCurve(image, [](int, double v) { return 255 - v; });
}

Image Parabolic(const Image& image, bool concave) {
  return detail::ThroughCurve(image, [concave](int, double v) {
    const double t = v / 255.0;
    return 255 * (concave ? 1 - (1 - t) * (1 - t) : t * t);
  });
}

namespace {

// An 8-bit table of libvips as OpenCV's LUT takes it, sharing its memory.
cv::Mat AsTable(const vips::VImage& lut) { return cv::Mat(1, 256, CV_8UC(lut.bands()), const_cast<void*>(lut.data())); }

}  // namespace

// Hue and saturation are turned in OpenCV's HSV of 8 bits a channel (the hue in 256 steps):
// there and back with the tables between in one pass, twice as fast as libvips' HSV and
// within six tenths of a level of it on average. Lightness alone is one table on the samples.
Image HueSaturationLuminance(const Image& image, int hue, int saturation, int luminance) {
  if (image.BitsPerSample() > 8 && (hue != 0 || saturation != 0)) {
    return HueSaturationLuminance(image.EightBit(), hue, saturation, luminance);
  }
  const double shift = Clamp(hue, -100, 100) * 1.28;  // 100 is half a turn
  const double chroma = 1 + Clamp(saturation, -100, 100) / 100.0;
  const double light = Clamp(luminance, -100, 100) / 100.0;
  return detail::OnColourBands(image, [=](const vips::VImage& rgb) {
    // Towards white or black, as GIMP's lightness.
    const auto lightness = [light](int, double v) { return light > 0 ? v + (255 - v) * light : v * (1 + light); };
    const std::optional<vips::VImage> lighten = light == 0 ? std::nullopt : std::optional(detail::CurveLut(lightness, rgb.format()));
    if (shift == 0 && chroma == 1) return lighten ? rgb.maplut(*lighten) : rgb;  // no HSV round trip: it is not exact
    const vips::VImage turn = detail::CurveLut([=](int band, double v) {
      if (band == 0) return std::fmod(std::round(v + shift) + 512, 256.0);
      return band == 1 ? v * chroma : double(v);
    });
    const cv::Mat turnTable = AsTable(turn);
    const std::optional<cv::Mat> lightenTable = lighten ? std::optional(AsTable(*lighten)) : std::nullopt;
    return detail::ThroughOpenCvInBands(rgb, [&turnTable, &lightenTable](const cv::Mat& from, cv::Mat& to) {
      cv::cvtColor(from, to, cv::COLOR_RGB2HSV_FULL);
      cv::LUT(to, turnTable, to);
      cv::cvtColor(to, to, cv::COLOR_HSV2RGB_FULL);
      if (lightenTable) cv::LUT(to, *lightenTable, to);
    });
  });
}

Image Equalize(const Image& image) {
  return detail::OnColourBands(image, [](const vips::VImage& rgb) { return rgb.hist_equal(); });
}

// Each channel becomes 0.299 R + 0.587 G + 0.114 B, rounded: OpenCV's transform does the
// weighted sum and the tripling in one pass over the rows.
Image GrayScale(const Image& image) {
  return detail::OnColourBands(image, [](const vips::VImage& rgb) {
    return detail::ThroughOpenCv(rgb, [](const cv::Mat& from, cv::Mat& to) {
      const cv::Matx33f luma(0.299f, 0.587f, 0.114f, 0.299f, 0.587f, 0.114f, 0.299f, 0.587f, 0.114f);
      cv::transform(from, to, luma);
    });
  });
}

constexpr double kRedEyeDominance = 1.8;

Image RedEyeRemoval(const Image& image, const QRect& area) {
  const QRect inside = area.intersected(QRect(0, 0, image.Width(), image.Height()));
  if (inside.isEmpty()) return image;
  return detail::OnWholeImage(image, [&inside](const vips::VImage& in) {
    const vips::VImage part = in.extract_area(inside.x(), inside.y(), inside.width(), inside.height());
    const vips::VImage red = part.extract_band(0).cast(VIPS_FORMAT_FLOAT);
    const vips::VImage green = part.extract_band(1).cast(VIPS_FORMAT_FLOAT);
    const vips::VImage blue = part.extract_band(2).cast(VIPS_FORMAT_FLOAT);
    const vips::VImage rest = (green + blue) / 2;
    // A pixel is red-eye where red dominates green and blue each by far: a strongly
    // saturated red. Skin (red over green by a third or so) and yellow (green as high as
    // red) are left alone.
    const double dark = 40 * WhiteOf(in) / 255;
    const vips::VImage eye = (red > green * kRedEyeDominance) & (red > blue * kRedEyeDominance) & (red > dark);
    vips::VImage fixed = eye.ifthenelse(rest.round(VIPS_OPERATION_ROUND_RINT), red).cast(in.format());
    fixed = fixed.bandjoin(part.extract_band(1, vips::VImage::option()->set("n", part.bands() - 1)));
    return in.insert(fixed, inside.x(), inside.y());
  });
}

}  // namespace imaging::ops
