// Color Depth: black and white for 1 bit, else a palette chosen by libimagequant (the
// quantiser of pngquant) from a copy of about a megapixel; then the whole image diffused
// onto it with Floyd-Steinberg. The
// image stays 24-bit RGB, showing only the palette's colours.
//
// The diffusion is ours: libimagequant's own remapping searches its palette for every
// pixel and took 3 seconds on a 24-megapixel photo; here the nearest entry of each
// colour cell (6 bits a channel) is found once and remembered.
#include "imaging/Operations.h"
#include "imaging/ops/OpsInternal.h"

#include <libimagequant.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

namespace imaging::ops {

namespace {

struct LiqDeleter {
  void operator()(liq_attr* p) const { liq_attr_destroy(p); }
  void operator()(liq_image* p) const { liq_image_destroy(p); }
  void operator()(liq_result* p) const { liq_result_destroy(p); }
};
template <typename T>
using LiqPtr = std::unique_ptr<T, LiqDeleter>;

struct Rgb {
  int R, G, B;
};
using Palette = std::vector<Rgb>;

// libimagequant reads the RGB rows through this callback, so no RGBA copy is made.
void ReadRow(liq_color out[], int row, int width, void* user) {
  const auto& rgb = *static_cast<const vips::VImage*>(user);
  const auto* in = static_cast<const unsigned char*>(rgb.data()) + static_cast<size_t>(row) * static_cast<size_t>(width) * 3;
  for (int x = 0; x < width; ++x, in += 3) out[x] = liq_color{in[0], in[1], in[2], 255};
}

constexpr double kPalettePixels = 1e6;

Palette ChoosePalette(const vips::VImage& rgb, int colours) {
  const LiqPtr<liq_attr> attr(liq_attr_create());
  liq_set_max_colors(attr.get(), colours);
  liq_set_speed(attr.get(), 8);
  const double scale = std::sqrt(kPalettePixels / (double(rgb.width()) * rgb.height()));
  vips::VImage sample = (scale < 1 ? rgb.shrink(1 / scale, 1 / scale) : rgb).copy_memory();  // box means suffice
  const LiqPtr<liq_image> image(liq_image_create_custom(attr.get(), ReadRow, &sample, sample.width(), sample.height(), 0));
  liq_result* raw = nullptr;
  if (!image || liq_image_quantize(image.get(), attr.get(), &raw) != LIQ_OK) throw vips::VError("quantisation failed");
  const LiqPtr<liq_result> result(raw);
  const liq_palette* found = liq_get_palette(result.get());
  Palette palette;
  for (unsigned i = 0; i < found->count; ++i) palette.push_back({found->entries[i].r, found->entries[i].g, found->entries[i].b});
  if (palette.empty()) throw vips::VError("empty palette");
  return palette;
}

// The nearest palette entry of each 6-bit colour cell, found on first use.
class NearestEntry {
 public:
  explicit NearestEntry(const Palette& palette) : palette_(palette), cells_(64 * 64 * 64, kUnknown) {}

  const Rgb& operator()(int r, int g, int b) {
    std::uint16_t& cell = cells_[static_cast<size_t>((r >> 2) << 12 | (g >> 2) << 6 | (b >> 2))];
    if (cell == kUnknown) cell = Search((r & ~3) + 2, (g & ~3) + 2, (b & ~3) + 2);
    return palette_[cell];
  }

 private:
  static constexpr std::uint16_t kUnknown = 0xFFFF;

  std::uint16_t Search(int r, int g, int b) const {
    std::uint16_t best = 0;
    int bestDistance = INT32_MAX;
    for (size_t i = 0; i < palette_.size(); ++i) {
      const int dr = palette_[i].R - r, dg = palette_[i].G - g, db = palette_[i].B - b;
      const int distance = 2 * dr * dr + 4 * dg * dg + 3 * db * db;  // weighted as the eye sees
      if (distance < bestDistance) {
        bestDistance = distance;
        best = static_cast<std::uint16_t>(i);
      }
    }
    return best;
  }

  const Palette& palette_;
  std::vector<std::uint16_t> cells_;
};

// Floyd-Steinberg: each pixel's error goes 7/16 right, 3/16 down-left, 5/16 down and 1/16
// down-right. Errors are kept in sixteenths; two rows of them at a time.
void DiffuseRows(const unsigned char* in, unsigned char* out, int width, int rows, const Palette& palette) {
  const size_t rowSamples = static_cast<size_t>(width) * 3;
  std::vector<int> here((static_cast<size_t>(width) + 2) * 3, 0), below(here.size(), 0);
  NearestEntry nearest(palette);
  for (int y = 0; y < rows; ++y) {
    const unsigned char* source = in + rowSamples * static_cast<size_t>(y);
    unsigned char* target = out + rowSamples * static_cast<size_t>(y);
    for (int x = 0; x < width; ++x) {
      int* error = &here[static_cast<size_t>(x + 1) * 3];
      int wanted[3];
      for (int c = 0; c < 3; ++c) wanted[c] = std::clamp(source[x * 3 + c] + ((error[c] + 8) >> 4), 0, 255);
      const Rgb& chosen = nearest(wanted[0], wanted[1], wanted[2]);
      const int got[3] = {chosen.R, chosen.G, chosen.B};
      int* down = &below[static_cast<size_t>(x + 1) * 3];
      for (int c = 0; c < 3; ++c) {
        target[x * 3 + c] = static_cast<unsigned char>(got[c]);
        const int e = wanted[c] - got[c];
        error[c + 3] += e * 7;
        down[c - 3] += e * 3;
        down[c] += e * 5;
        down[c + 3] += e;
      }
    }
    here.swap(below);
    std::fill(below.begin(), below.end(), 0);
  }
}

// Error diffusion is serial along the rows; the image is cut into one band of rows per
// core, each diffused on its own (the seams do not show).
vips::VImage Diffused(const vips::VImage& rgb, const Palette& palette) {
  const int width = rgb.width(), height = rgb.height();
  const size_t rowSamples = static_cast<size_t>(width) * 3;
  auto* out = static_cast<unsigned char*>(g_malloc(rowSamples * static_cast<size_t>(height)));
  const auto* in = static_cast<const unsigned char*>(rgb.data());
  const int bands = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, std::max(1, height / 64));
  std::vector<std::thread> workers;
  for (int band = 0; band < bands; ++band) {
    const int first = height * band / bands, last = height * (band + 1) / bands;
    const size_t offset = rowSamples * static_cast<size_t>(first);
    workers.emplace_back([=, &palette] { DiffuseRows(in + offset, out + offset, width, last - first, palette); });
  }
  for (std::thread& worker : workers) worker.join();
  return vips::VImage::new_from_memory_steal(out, rowSamples * static_cast<size_t>(height), width, height, 3,
                                             VIPS_FORMAT_UCHAR);
}

}  // namespace

Image ColorDepth(const Image& image, int bits) {
  const Image flat = image.OnWhite().EightBit();  // a palette of 8-bit colours
  if (bits != 1 && bits != 4 && bits != 8) return flat;
  return detail::OnWholeImage(flat, [bits](const vips::VImage& rgb) {
    const vips::VImage pixels = rgb.copy_memory();
    // One bit is black and white, as every viewer's 2-colour reduction; more get a palette.
    return Diffused(pixels, bits == 1 ? Palette{{0, 0, 0}, {255, 255, 255}} : ChoosePalette(pixels, 1 << bits));
  });
}

}  // namespace imaging::ops
