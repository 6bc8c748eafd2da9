// Noise and Diffuse. Their randomness is seeded from the image's size, so the same image
// always gives the same result (and a test can repeat it).
#include "imaging/Operations.h"
#include "imaging/ops/OpsInternal.h"

#include <cstdint>

namespace imaging::ops {

using detail::Clamp;

namespace {

// SplitMix64: small, fast and good enough for visual noise.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }

 private:
  std::uint64_t state_;
};

std::uint64_t Seed(const vips::VImage& in) { return (std::uint64_t(in.width()) << 32) ^ std::uint64_t(in.height()); }

// A one- or two-band image of the given sample type filled by `fill(samples, count)`.
template <typename Sample, typename Fill>
vips::VImage Generated(const vips::VImage& like, int bands, VipsBandFormat format, Fill fill) {
  const size_t count = static_cast<size_t>(like.width()) * static_cast<size_t>(like.height()) * static_cast<size_t>(bands);
  auto* samples = static_cast<Sample*>(g_malloc(count * sizeof(Sample)));
  fill(samples, count);
  return vips::VImage::new_from_memory_steal(samples, count * sizeof(Sample), like.width(), like.height(), bands, format);
}

}  // namespace

Image Noise(const Image& image, int frequency, int intensity) {
  const std::uint64_t chance = static_cast<std::uint64_t>(Clamp(frequency, 1, 20)) * 5;  // per cent of the pixels
  const int spread = Clamp(intensity, 1, 128);
  return detail::OnColourBands(image, [=](const vips::VImage& rgb) {
    const vips::VImage noise = Generated<std::int16_t>(rgb, 1, VIPS_FORMAT_SHORT, [&](std::int16_t* out, size_t n) {
      Random random(Seed(rgb));
      for (size_t i = 0; i < n; ++i) {
        const std::uint64_t r = random.Next();
        const bool hit = (r & 0xFFFF) * 100 < chance * 0x10000;
        out[i] = hit ? static_cast<std::int16_t>(static_cast<int>((r >> 16) % std::uint64_t(2 * spread + 1)) - spread) : 0;
      }
    });
    return rgb + noise * (WhiteOf(rgb) / 255);
  });
}

Image Diffuse(const Image& image) {
  constexpr int kReach = 2;
  return detail::OnWholeImage(image, [](const vips::VImage& in) {
    const vips::VImage offsets = Generated<std::int8_t>(in, 2, VIPS_FORMAT_CHAR, [&](std::int8_t* out, size_t n) {
      Random random(Seed(in));
      for (size_t i = 0; i < n; ++i) out[i] = static_cast<std::int8_t>(int(random.Next() % (2 * kReach + 1)) - kReach);
    });
    const vips::VImage index = vips::VImage::xyz(in.width(), in.height()) + offsets;
    return in.mapim(index, vips::VImage::option()
                               ->set("interpolate", vips::VInterpolate::new_from_name("nearest"))
                               ->set("extend", VIPS_EXTEND_COPY));
  });
}

}  // namespace imaging::ops
