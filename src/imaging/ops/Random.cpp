// Noise and Diffuse. Their randomness is seeded from the image's size, so the same image
// always gives the same result (and a test can repeat it).
#include "imaging/Operations.h"
#include "imaging/ops/OpenCvBridge.h"
#include "imaging/ops/OpsInternal.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace imaging::ops {

using detail::Clamp;

namespace {

// SplitMix64's mixing of a counter: small, fast, good enough for visual noise, and the same
// for a pixel whichever thread draws it.
std::uint64_t Draw(std::uint64_t seed, std::uint64_t index) {
  std::uint64_t z = seed + (index + 1) * 0x9E3779B97F4A7C15ull;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

std::uint64_t Seed(const vips::VImage& in) { return (std::uint64_t(in.width()) << 32) ^ std::uint64_t(in.height()); }

// One row's samples with each pixel's draw added to every colour band, held in range. A
// pixel takes 32 bits of a draw, so each draw serves two pixels in turn (the pixel's number
// halved picks the draw, its last bit the half). Everything arrives by value: a store of an
// 8-bit sample may alias anything in memory, and the loop would read it all again each time.
template <typename Sample>
void AddNoiseToRow(const Sample* in, Sample* out, int width, int bands, std::uint64_t index, std::uint64_t seed,
                   std::uint64_t chance, int spread) {
  const int maximum = std::numeric_limits<Sample>::max();
  const int scale = sizeof(Sample) == 2 ? 257 : 1;  // whole numbers throughout, at either depth
  std::uint64_t drawn = Draw(seed, index >> 1);
  for (int x = 0; x < width; ++x, ++index, in += bands, out += bands) {
    if ((index & 1) == 0) drawn = Draw(seed, index >> 1);
    const std::uint32_t r = std::uint32_t(drawn >> (32 * (index & 1)));
    // Without branches: half the pixels are hit at random, which no prediction follows.
    const int hit = -int((r & 0xFFFF) * 100 < chance * 0x10000);
    const int value = ((int((r >> 16) * std::uint64_t(2 * spread + 1) >> 16) - spread) * scale) & hit;
    for (int c = 0; c < bands; ++c) out[c] = static_cast<Sample>(std::min(std::max(in[c] + value, 0), maximum));
  }
}

template <typename Sample>
void AddNoise(const cv::Mat& from, cv::Mat& to, std::uint64_t seed, std::uint64_t chance, int spread) {
  cv::parallel_for_(cv::Range(0, from.rows), [&](const cv::Range& rows) {
    for (int y = rows.start; y < rows.end; ++y) {
      AddNoiseToRow(from.ptr<Sample>(y), to.ptr<Sample>(y), from.cols, from.channels(), std::uint64_t(y) * std::uint64_t(from.cols),
                    seed, chance, spread);
    }
  });
}

}  // namespace

Image Noise(const Image& image, int frequency, int intensity) {
  const std::uint64_t chance = static_cast<std::uint64_t>(Clamp(frequency, 1, 20)) * 5;  // per cent of the pixels
  const int spread = Clamp(intensity, 1, 128);
  return detail::OnColourBands(image, [=](const vips::VImage& rgb) {
    // One draw a pixel, made on every core in a single pass over the picture.
    const std::uint64_t seed = Seed(rgb);
    return detail::ThroughOpenCv(rgb, [&](const cv::Mat& from, cv::Mat& to) {
      IsDeep(rgb) ? AddNoise<std::uint16_t>(from, to, seed, chance, spread) : AddNoise<std::uint8_t>(from, to, seed, chance, spread);
    });
  });
}

Image Diffuse(const Image& image) {
  constexpr int kReach = 2;
  return detail::OnWholeImage(image, [](const vips::VImage& in) {
    const std::uint64_t seed = Seed(in), width = std::uint64_t(in.width());
    return detail::Remapped(in, [seed, width](int x, int y) {
      const std::uint64_t r = Draw(seed, std::uint64_t(y) * width + std::uint64_t(x));
      const int dx = int(r % (2 * kReach + 1)) - kReach, dy = int((r >> 32) % (2 * kReach + 1)) - kReach;
      return detail::MapPoint{float(x + dx), float(y + dy)};
    }, cv::INTER_NEAREST, cv::BORDER_REPLICATE);
  });
}

}  // namespace imaging::ops
