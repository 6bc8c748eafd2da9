// Color Depth: black and white for 1 bit, else a palette chosen by libimagequant (the
// quantiser of pngquant) from a sample of a quarter megapixel; then the whole image
// diffused onto it with Floyd-Steinberg. The image stays 24-bit RGB, showing only the
// palette's colours.
//
// The diffusion is ours: libimagequant's own remapping searches its palette for every
// pixel and took 3 seconds on a 24-megapixel photo; here the nearest entry of each
// colour cell (6 bits a channel) is found once and remembered.
#include "imaging/Operations.h"
#include "imaging/ops/OpsInternal.h"

#include <libimagequant.h>

#include <algorithm>
#include <atomic>
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

constexpr double kPalettePixels = 0.25e6;

Palette ChoosePalette(const vips::VImage& rgb, int colours) {
  const LiqPtr<liq_attr> attr(liq_attr_create());
  liq_set_max_colors(attr.get(), colours);
  liq_set_speed(attr.get(), 8);
  // Every step-th pixel of every step-th row: libimagequant builds a histogram, which a
  // sample of a quarter megapixel fills as well as the whole, read in a few milliseconds.
  const int step = std::max(1, int(std::sqrt(double(rgb.width()) * rgb.height() / kPalettePixels)));
  vips::VImage sample = (step > 1 ? rgb.subsample(step, step) : rgb).copy_memory();
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

// The distance between two colours, weighted as the eye sees.
int Distance(int dr, int dg, int db) { return 2 * dr * dr + 4 * dg * dg + 3 * db * db; }

// For each box of 32 levels a channel, the entries that may be nearest to some colour in it:
// those whose least distance to the box is within the greatest distance to it of the entry
// that is nowhere far. They are kept in palette order, so the first on a tie still wins; a
// search tries a handful of entries instead of the whole palette.
class Candidates {
 public:
  explicit Candidates(const Palette& palette) : lists_(size_t(kBoxes * kBoxes * kBoxes)) {
    for (int r = 0; r < kBoxes; ++r) {
      for (int g = 0; g < kBoxes; ++g) {
        for (int b = 0; b < kBoxes; ++b) Fill(lists_[size_t(Index(r, g, b))], palette, r * kSide, g * kSide, b * kSide);
      }
    }
  }

  const std::vector<std::uint16_t>& For(int r, int g, int b) const { return lists_[size_t(Index(r / kSide, g / kSide, b / kSide))]; }

 private:
  static constexpr int kBoxes = 8, kSide = 256 / kBoxes;

  static int Index(int r, int g, int b) { return (r * kBoxes + g) * kBoxes + b; }
  static int Nearest(int value, int low) { return value < low ? low - value : value > low + kSide - 1 ? value - (low + kSide - 1) : 0; }
  static int Farthest(int value, int low) { return std::max(std::abs(value - low), std::abs(value - (low + kSide - 1))); }

  static void Fill(std::vector<std::uint16_t>& list, const Palette& palette, int r, int g, int b) {
    int bound = INT32_MAX;
    for (const Rgb& e : palette) bound = std::min(bound, Distance(Farthest(e.R, r), Farthest(e.G, g), Farthest(e.B, b)));
    for (size_t i = 0; i < palette.size(); ++i) {
      const Rgb& e = palette[i];
      if (Distance(Nearest(e.R, r), Nearest(e.G, g), Nearest(e.B, b)) <= bound) list.push_back(std::uint16_t(i));
    }
  }

  std::vector<std::vector<std::uint16_t>> lists_;
};

// The nearest palette entry of each 6-bit colour cell, found on first use and kept packed
// in the cell itself, so that a pixel costs one look-up. The cells are shared by the bands
// diffused at once: both would find the same entry, so a cell written twice holds one value.
class NearestEntries {
 public:
  explicit NearestEntries(const Palette& palette) : palette_(palette), candidates_(palette), cells_(64 * 64 * 64) {
    for (auto& cell : cells_) cell.store(kUnknown, std::memory_order_relaxed);
  }

  [[gnu::always_inline]] Rgb operator()(int r, int g, int b) {
    std::atomic<std::uint32_t>& cell = cells_[static_cast<size_t>((r >> 2) << 12 | (g >> 2) << 6 | (b >> 2))];
    std::uint32_t packed = cell.load(std::memory_order_relaxed);
    if (packed == kUnknown) [[unlikely]] {
      const Rgb& entry = palette_[Search((r & ~3) + 2, (g & ~3) + 2, (b & ~3) + 2)];
      packed = std::uint32_t(entry.R) << 16 | std::uint32_t(entry.G) << 8 | std::uint32_t(entry.B);
      cell.store(packed, std::memory_order_relaxed);
    }
    return {int(packed >> 16), int((packed >> 8) & 0xFF), int(packed & 0xFF)};
  }

 private:
  static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;

  // The entry at the least distance, the first in the palette on a tie. Kept out of line:
  // the look-up above is the diffusion's inner step.
  [[gnu::noinline]] size_t Search(int r, int g, int b) const {
    size_t best = 0;
    int bestDistance = INT32_MAX;
    for (const std::uint16_t i : candidates_.For(r, g, b)) {
      const int distance = Distance(palette_[i].R - r, palette_[i].G - g, palette_[i].B - b);
      if (distance < bestDistance) {
        bestDistance = distance;
        best = i;
      }
    }
    return best;
  }

  const Palette& palette_;
  const Candidates candidates_;
  std::vector<std::atomic<std::uint32_t>> cells_;
};

int Clamped(int value) { return value < 0 ? 0 : value > 255 ? 255 : value; }

// Floyd-Steinberg sends a pixel's error (in sixteenths) 7/16 right, and 3/16 down-left,
// 5/16 down and 1/16 down-right into the next row. What a channel carries along its row:
// the right share for the next pixel, and the two sums of the next row still open (below
// the pixel and after it). They stay in registers; each sum of the next row is stored once,
// complete, where adding into memory at every pixel stalled on the adds before it.
struct Carry {
  int Right = 0, Below = 0, After = 0;
};

[[gnu::always_inline]] inline void Spread(Carry& carry, int error, int* belowBefore) {
  carry.Right = error * 7;
  *belowBefore = carry.Below + error * 3;  // the column before this one: complete now
  carry.Below = carry.After + error * 5;
  carry.After = error;
}

struct RowCarry {
  Carry R, G, B;
};

// One pixel: `incoming` holds its sums from the row above, `below` the next row's at its
// column (the column before it is written).
[[gnu::always_inline]] inline void DiffusePixel(NearestEntries& nearest, const unsigned char* __restrict in, unsigned char* __restrict out,
                                                const int* __restrict incoming, int* __restrict below, RowCarry& carry) {
  const int r = Clamped(in[0] + ((incoming[0] + carry.R.Right + 8) >> 4));
  const int g = Clamped(in[1] + ((incoming[1] + carry.G.Right + 8) >> 4));
  const int b = Clamped(in[2] + ((incoming[2] + carry.B.Right + 8) >> 4));
  const Rgb chosen = nearest(r, g, b);
  out[0] = static_cast<unsigned char>(chosen.R);
  out[1] = static_cast<unsigned char>(chosen.G);
  out[2] = static_cast<unsigned char>(chosen.B);
  Spread(carry.R, r - chosen.R, below - 3);
  Spread(carry.G, g - chosen.G, below - 2);
  Spread(carry.B, b - chosen.B, below - 1);
}

// The row's last open sums, below its last column.
void FinishRow(const RowCarry& carry, int* below) {
  below[0] = carry.R.Below;
  below[1] = carry.G.Below;
  below[2] = carry.B.Below;
}

// Two rows at a time, the lower two pixels behind: by then every sum it takes from the
// upper row is complete, so the result is that of one row after the other, while the two
// chains of dependent steps overlap in the processor.
void DiffuseRows(const unsigned char* in, unsigned char* out, int width, int rows, NearestEntries& nearest) {
  const size_t rowSamples = static_cast<size_t>(width) * 3, sumSamples = (static_cast<size_t>(width) + 1) * 3;
  std::vector<int> sums(sumSamples * 3, 0);  // each row's from the row above, a spare column before column 0
  int* upper = sums.data() + 3;  // the upper row's
  int* lower = upper + sumSamples;  // the lower row's, which the upper one writes
  int* next = lower + sumSamples;  // the row after's, which the lower one writes
  for (int y = 0; y < rows; y += 2) {
    const unsigned char* top = in + rowSamples * static_cast<size_t>(y);
    unsigned char* topOut = out + rowSamples * static_cast<size_t>(y);
    const bool pair = y + 1 < rows;
    RowCarry first, second;
    for (int x = 0; x < width; ++x) {
      const size_t at = static_cast<size_t>(x) * 3;
      DiffusePixel(nearest, top + at, topOut + at, upper + at, lower + at, first);
      if (pair && x >= 2) DiffusePixel(nearest, top + rowSamples + at - 6, topOut + rowSamples + at - 6, lower + at - 6, next + at - 6, second);
    }
    FinishRow(first, lower + rowSamples - 3);
    for (int x = std::max(width - 2, 0); pair && x < width; ++x) {
      const size_t at = static_cast<size_t>(x) * 3;
      DiffusePixel(nearest, top + rowSamples + at, topOut + rowSamples + at, lower + at, next + at, second);
    }
    FinishRow(second, next + rowSamples - 3);
    std::swap(upper, next);  // the row after is the next pair's upper row
  }
}

// Error diffusion is serial along the rows; the image is cut into one band of rows per
// core, each diffused on its own (the seams do not show).
vips::VImage Diffused(const vips::VImage& rgb, const Palette& palette) {
  const int width = rgb.width(), height = rgb.height();
  const size_t rowSamples = static_cast<size_t>(width) * 3;
  auto* out = static_cast<unsigned char*>(AllocatePixels(rowSamples * static_cast<size_t>(height)));
  if (!out) throw std::bad_alloc();
  const auto* in = static_cast<const unsigned char*>(rgb.data());
  NearestEntries nearest(palette);
  const int bands = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, std::max(1, height / 64));
  std::vector<std::thread> workers;
  for (int band = 0; band < bands; ++band) {
    const int first = height * band / bands, last = height * (band + 1) / bands;
    const size_t offset = rowSamples * static_cast<size_t>(first);
    workers.emplace_back([=, &nearest] { DiffuseRows(in + offset, out + offset, width, last - first, nearest); });
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
    const vips::VImage pixels = InMemory(rgb);
    // One bit is black and white, as every viewer's 2-colour reduction; more get a palette.
    return Diffused(pixels, bits == 1 ? Palette{{0, 0, 0}, {255, 255, 255}} : ChoosePalette(pixels, 1 << bits));
  });
}

}  // namespace imaging::ops
