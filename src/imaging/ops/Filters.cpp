// The Filters submenu: neighbourhood operations on the colour bands.
#include "imaging/Operations.h"
#include "imaging/ops/OpenCvBridge.h"
#include "imaging/ops/OpsInternal.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace imaging::ops {

using detail::Clamp;

namespace {

enum class Rank { Minimum, Median, Maximum };

// The 3 x 3 minimum, median or maximum of each band, the edges repeated outward. OpenCV's
// filters give libvips rank's very pixels four to eight times sooner on a photograph (both
// cores, vector code); its result is handed to libvips without a copy.
vips::VImage RankOf(const vips::VImage& rgb, Rank rank) {
  return detail::ThroughOpenCv(rgb, [rank](const cv::Mat& from, cv::Mat& to) {
    const cv::Mat square = cv::getStructuringElement(cv::MORPH_RECT, cv::Size(3, 3));
    switch (rank) {
      case Rank::Minimum: cv::erode(from, to, square, cv::Point(-1, -1), 1, cv::BORDER_REPLICATE); break;
      case Rank::Median: cv::medianBlur(from, to, 3); break;
      case Rank::Maximum: cv::dilate(from, to, square, cv::Point(-1, -1), 1, cv::BORDER_REPLICATE); break;
    }
  });
}

Image RankFilter(const Image& image, Rank rank) {
  return detail::OnColourBands(image, [rank](const vips::VImage& rgb) { return RankOf(rgb, rank); });
}

// The trail of Motion Blur: the cells of a one-pixel line `length` long from the centre
// against the direction of motion, as offsets from the pixel; a cell two steps round to is
// one cell.
std::vector<cv::Point> TrailCells(double dx, double dy, int length) {
  std::vector<cv::Point> cells;
  const double norm = std::hypot(dx, dy);
  for (int k = 0; k <= length; ++k) {
    const cv::Point cell(-static_cast<int>(std::lround(k * dx / norm)), -static_cast<int>(std::lround(k * dy / norm)));
    if (std::find(cells.begin(), cells.end(), cell) == cells.end()) cells.push_back(cell);
  }
  return cells;
}

// `sums[i] += samples[i]` for a run of samples (the two never overlap, so it vectorises).
template <typename Sample, typename Sum>
void AddRun(Sum* __restrict sums, const Sample* __restrict samples, int count) {
  for (int i = 0; i < count; ++i) sums[i] = Sum(sums[i] + samples[i]);
}

// The mean of the samples under the trail's cells, the edges repeated outward, rounded half
// up. Each row adds its source rows, shifted, into sums (loops that vectorise), one band of
// rows per core. libvips' integer convolution of the same mask either approximates the
// division (its vector code) or divides sample by sample, three to five times slower.
template <typename Sample, typename Sum>
void TrailMean(const cv::Mat& from, cv::Mat& to, const std::vector<cv::Point>& cells) {
  const int width = from.cols, height = from.rows, bands = from.channels(), count = int(cells.size());
  // floor((sum + count / 2) / count), exactly: the quotient's fraction is at least 0.5 / count
  // away from a whole number, far more than a double's error.
  const double halfUp = count / 2 + 0.5, reciprocal = 1.0 / count;
  cv::parallel_for_(cv::Range(0, height), [&](const cv::Range& rows) {
    std::vector<Sum> sums(size_t(width * bands));
    for (int y = rows.start; y < rows.end; ++y) {
      std::fill(sums.begin(), sums.end(), Sum(0));
      for (const cv::Point& cell : cells) {
        const Sample* source = from.ptr<Sample>(std::clamp(y + cell.y, 0, height - 1));
        const auto addEdge = [&](int x) {
          const Sample* edge = source + std::clamp(x + cell.x, 0, width - 1) * bands;
          for (int c = 0; c < bands; ++c) sums[size_t(x * bands + c)] += edge[c];
        };
        const int first = std::clamp(-cell.x, 0, width), end = std::clamp(width - cell.x, 0, width);  // sources in range
        for (int x = 0; x < first; ++x) addEdge(x);
        for (int x = end; x < width; ++x) addEdge(x);
        if (end > first) AddRun(sums.data() + first * bands, source + (first + cell.x) * bands, (end - first) * bands);
      }
      Sample* out = to.ptr<Sample>(y);
      for (size_t i = 0; i < sums.size(); ++i) out[i] = static_cast<Sample>((double(sums[i]) + halfUp) * reciprocal);
    }
  });
}

// (100 - a) % of each sample plus a % of its 3 x 3 mean, the edges repeated outward: in
// whole numbers over 900, rounded half up, one pass on every core. Each row first sums its
// three lines sample by sample, then three of those sums side by side: both loops vectorise.
template <typename Sample>
void BlendWithMean(const cv::Mat& from, cv::Mat& to, int a) {
  const int height = from.rows, bands = from.channels(), samples = from.cols * bands;
  const unsigned share = unsigned(a), centre = 900 - 9 * share;
  cv::parallel_for_(cv::Range(0, height), [&, share, centre, samples, bands](const cv::Range& rows) {
    std::vector<unsigned> columns(size_t(samples + 2 * bands));  // with the edge columns repeated
    unsigned* __restrict sums = columns.data() + bands;
    for (int y = rows.start; y < rows.end; ++y) {
      const Sample* __restrict above = from.ptr<Sample>(std::max(y - 1, 0));
      const Sample* __restrict here = from.ptr<Sample>(y);
      const Sample* __restrict below = from.ptr<Sample>(std::min(y + 1, height - 1));
      for (int i = 0; i < samples; ++i) sums[i] = unsigned(above[i]) + here[i] + below[i];
      for (int c = 0; c < bands; ++c) {
        sums[c - bands] = sums[c];
        sums[samples + c] = sums[samples - bands + c];
      }
      // Copies in locals and unaliased pointers: a store of a byte may alias anything, and
      // the compiler would reload every value at every sample rather than vectorise.
      Sample* __restrict out = to.ptr<Sample>(y);
      for (int i = 0; i < samples; ++i) {
        const unsigned sum = sums[i - bands] + sums[i] + sums[i + bands];
        out[i] = static_cast<Sample>((centre * here[i] + share * sum + 450) / 900);
      }
    }
  });
}

}  // namespace

Image Blend(const Image& image, int amount) {
  const int a = Clamp(amount, 0, 100);
  if (a == 0) return image;
  return detail::OnColourBands(image, [a](const vips::VImage& rgb) {
    return detail::ThroughOpenCv(rgb, [a, deep = IsDeep(rgb)](const cv::Mat& from, cv::Mat& to) {
      deep ? BlendWithMean<std::uint16_t>(from, to, a) : BlendWithMean<std::uint8_t>(from, to, a);
    });
  });
}

Image Blur(const Image& image) {
  return detail::OnColourBands(image, [](const vips::VImage& rgb) { return rgb.gaussblur(1.0); });
}

Image Dilate(const Image& image) { return RankFilter(image, Rank::Maximum); }
Image Erode(const Image& image) { return RankFilter(image, Rank::Minimum); }
Image Median(const Image& image) { return RankFilter(image, Rank::Median); }

Image Mosaic(const Image& image, int block) {
  const int b = Clamp(block, 1, 63);
  if (b == 1) return image;
  return detail::OnWholeImage(image, [b](const vips::VImage& in) {
    const int width = (in.width() + b - 1) / b * b;
    const int height = (in.height() + b - 1) / b * b;
    const vips::VImage padded = in.embed(0, 0, width, height, vips::VImage::option()->set("extend", VIPS_EXTEND_COPY));
    return padded.shrink(b, b).zoom(b, b).extract_area(0, 0, in.width(), in.height());
  });
}

Image MotionBlur(const Image& image, int horizontal, int vertical, int intensity) {
  const double dx = Clamp(horizontal, -10, 10), dy = Clamp(vertical, -10, 10);
  const int length = static_cast<int>(std::lround(Clamp(intensity, 1, 25) * std::hypot(dx, dy) / 10));
  if (length < 1) return image;
  const std::vector<cv::Point> cells = TrailCells(dx, dy, length);
  return detail::OnColourBands(image, [&cells](const vips::VImage& rgb) {
    return detail::ThroughOpenCv(rgb, [&cells, deep = IsDeep(rgb)](const cv::Mat& from, cv::Mat& to) {
      deep ? TrailMean<std::uint16_t, std::uint32_t>(from, to, cells) : TrailMean<std::uint8_t, std::uint16_t>(from, to, cells);
    });
  });
}

// Each sample pushed away from its blurred self: (1 + a) x sample - a x blurred. The blur
// is libvips' Gaussian mask of sigma 1, run with the sum by OpenCV in one pass (about five
// times sooner on a photograph than the same steps in libvips' floating point).
Image Sharpen(const Image& image, int level) {
  const double amount = Clamp(level, 1, 9) / 4.0;
  const vips::VImage mask = vips::VImage::gaussmat(1.0, 0.2, vips::VImage::option()->set("separable", true));
  std::vector<float> kernel;
  for (int x = 0; x < mask.width(); ++x) kernel.push_back(float(mask.getpoint(x, 0)[0] / vips_image_get_scale(mask.get_image())));
  return detail::OnColourBands(image, [amount, &kernel](const vips::VImage& rgb) {
    return detail::ThroughOpenCv(rgb, [amount, &kernel](const cv::Mat& from, cv::Mat& to) {
      cv::Mat blurred;
      cv::sepFilter2D(from, blurred, -1, kernel, kernel, cv::Point(-1, -1), 0, cv::BORDER_REPLICATE);
      cv::addWeighted(from, 1 + amount, blurred, -amount, 0, to);
    });
  });
}

Image Soften(const Image& image, int level) {
  const double sigma = Clamp(level, 1, 9) / 2.0;
  return detail::OnColourBands(image, [sigma](const vips::VImage& rgb) { return rgb.gaussblur(sigma); });
}

}  // namespace imaging::ops
