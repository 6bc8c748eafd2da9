// Color Depth: black and white for 1 bit, else a palette chosen by libimagequant (the
// quantiser of pngquant) from a sample of a quarter megapixel; then the whole image
// diffused onto it with Floyd-Steinberg. The image stays 24-bit RGB, showing only the
// palette's colours.
//
// The diffusion is ours: libimagequant's own remapping searches its palette for every
// pixel and took 3 seconds on a 24-megapixel photo; here the nearest entry of every
// colour cell (6 bits a channel) is found once, up front, and a pixel looks it up.
#include "imaging/Operations.h"
#include "imaging/ops/OpsInternal.h"

#include <libimagequant.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
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

// Runs work(first, last) over `count` items cut into `parts` ranges, one thread each.
void InParts(int count, int parts, const std::function<void(int first, int last)>& work) {
  std::vector<std::thread> workers;
  for (int part = 1; part < parts; ++part) workers.emplace_back(work, count * part / parts, count * (part + 1) / parts);
  work(0, count / parts);
  for (std::thread& worker : workers) worker.join();
}

int Cores() { return std::max(1, static_cast<int>(std::thread::hardware_concurrency())); }

// The colour space is cut into boxes of 32 levels a channel, and each box into cells of 4.
constexpr int kBoxSide = 32, kCellSide = 4, kCellsAcross = kBoxSide / kCellSide;

// The entries that may be nearest to some colour in the box whose lowest corner is (r, g, b):
// those whose least distance to the box is within the greatest distance to it of the entry
// that is nowhere far. They are kept in palette order, so the first on a tie still wins.
std::vector<std::uint16_t> Candidates(const Palette& palette, int r, int g, int b) {
  const auto nearest = [](int value, int low) { return value < low ? low - value : std::max(0, value - (low + kBoxSide - 1)); };
  const auto farthest = [](int value, int low) { return std::max(std::abs(value - low), std::abs(value - (low + kBoxSide - 1))); };
  int bound = INT32_MAX;
  for (const Rgb& e : palette) bound = std::min(bound, Distance(farthest(e.R, r), farthest(e.G, g), farthest(e.B, b)));
  std::vector<std::uint16_t> list;
  for (size_t i = 0; i < palette.size(); ++i) {
    const Rgb& e = palette[i];
    if (Distance(nearest(e.R, r), nearest(e.G, g), nearest(e.B, b)) <= bound) list.push_back(std::uint16_t(i));
  }
  return list;
}

// A pixel's three channels (and a spare) side by side, worked on at once; sums in
// sixteenths never leave -4080 .. 4080.
using Lanes = std::int16_t __attribute__((vector_size(8)));
using LaneBytes = std::uint8_t __attribute__((vector_size(4)));

// The nearest palette entry of every 6-bit colour cell, by the distance from the cell's
// centre. For a large picture all are found up front, on every core, eight cells at once
// (a diffused photo reaches nearly all of them), and a pixel costs one look-up in a table
// of 256 KB. That is some four million distances whatever the picture; a small one costs
// less when each pixel searches the palette itself.
class NearestEntries {
 public:
  NearestEntries(const Palette& palette, double pixels) : palette_(palette) {
    for (const Rgb& e : palette) {
      colours_.push_back(Lanes{std::int16_t(e.R), std::int16_t(e.G), std::int16_t(e.B), 0});
      packed_.push_back(std::uint32_t(e.R) | std::uint32_t(e.G) << 8 | std::uint32_t(e.B) << 16);
    }
    if (pixels * double(palette.size()) < 4e6) return;
    cells_.resize(64 * 64 * 64);
    constexpr int boxes = 256 / kBoxSide;
    InParts(boxes * boxes * boxes, Cores(), [&](int first, int last) {
      for (int box = first; box < last; ++box) FillBox(box / (boxes * boxes) * kBoxSide, box / boxes % boxes * kBoxSide, box % boxes * kBoxSide);
    });
  }

  // How a pixel finds its entry's number, from a colour packed as red | green << 8 | blue << 16.
  struct FromTable {
    const std::uint8_t* Cells;
    [[gnu::always_inline]] unsigned operator()(std::uint32_t colour) const {
      return Cells[(colour >> 2 & 0x3F) | (colour >> 4 & 0xFC0) | (colour >> 6 & 0x3F000)];
    }
  };
  struct BySearch {
    const NearestEntries* Owner;
    [[gnu::always_inline]] unsigned operator()(std::uint32_t colour) const { return Owner->Search(colour); }
  };

  // What the diffusion holds in registers while it looks entries up.
  template <typename Find>
  struct View {
    Find Nearest;
    const Lanes* Colours;  // an entry's channels side by side
    const std::uint32_t* Packed;  // red | green << 8 | blue << 16
  };

  // work(view) with the table, or with a search when there is none.
  template <typename Work>
  void WithView(const Work& work) const {
    if (cells_.empty()) {
      work(View<BySearch>{{this}, colours_.data(), packed_.data()});
    } else {
      work(View<FromTable>{{cells_.data()}, colours_.data(), packed_.data()});
    }
  }

  // The entry nearest to the centre of the colour's cell, the first in the palette on a tie.
  [[gnu::noinline]] unsigned Search(std::uint32_t colour) const {
    const auto centre = [colour](int shift) { return int((colour >> shift & 0xFC) + kCellSide / 2); };
    const int r = centre(0), g = centre(8), b = centre(16);
    unsigned best = 0;
    int least = INT32_MAX;
    for (size_t i = 0; i < palette_.size(); ++i) {
      const int distance = Distance(palette_[i].R - r, palette_[i].G - g, palette_[i].B - b);
      if (distance < least) {
        least = distance;
        best = unsigned(i);
      }
    }
    return best;
  }

 private:
  using Floats = float __attribute__((vector_size(16)));  // distances up to 585,225: exact
  using Numbers = std::int32_t __attribute__((vector_size(16)));
  static constexpr int kAtOnce = 4, kGroups = kCellsAcross / kAtOnce;

  // The cells of one box, a row of eight along blue at a time.
  void FillBox(int r, int g, int b) {
    const std::vector<std::uint16_t> candidates = Candidates(palette_, r, g, b);
    Floats blues[kGroups];
    for (int k = 0; k < kCellsAcross; ++k) blues[k / kAtOnce][k % kAtOnce] = float(b + kCellSide * k + kCellSide / 2);
    for (int red = r + kCellSide / 2; red < r + kBoxSide; red += kCellSide) {
      for (int green = g + kCellSide / 2; green < g + kBoxSide; green += kCellSide) {
        Floats least[kGroups];
        Numbers nearest[kGroups] = {};
        for (Floats& l : least) l = Floats{} + 1e9f;
        for (const std::uint16_t i : candidates) {
          const Rgb& e = palette_[i];
          const float redGreen = float(Distance(e.R - red, e.G - green, 0));
          for (int group = 0; group < kGroups; ++group) {
            const Floats blue = float(e.B) - blues[group];
            const Floats distance = redGreen + 3 * blue * blue;
            const Numbers closer = distance < least[group];
            least[group] = closer ? distance : least[group];
            nearest[group] = closer ? Numbers{} + i : nearest[group];
          }
        }
        for (int k = 0; k < kCellsAcross; ++k) {
          cells_[size_t(red >> 2 | (green >> 2) << 6 | (b / kCellSide + k) << 12)] = std::uint8_t(nearest[k / kAtOnce][k % kAtOnce]);
        }
      }
    }
  }

  const Palette& palette_;
  std::vector<std::uint8_t> cells_;
  std::vector<Lanes> colours_;
  std::vector<std::uint32_t> packed_;
};

// Floyd-Steinberg sends a pixel's error (in sixteenths) 7/16 right, and 3/16 down-left,
// 5/16 down and 1/16 down-right into the next row. What a row carries along: the right
// share for the next pixel, and the two sums of the next row still open (below the pixel
// and after it). They stay in registers; each sum of the next row is stored once,
// complete, where adding into memory at every pixel stalled on the adds before it.
struct Carry {
  Lanes Right{}, Below{}, After{};
};

// One pixel: `incoming` holds its sums from the row above, `below` the next row's at its
// column (the column before it is written).
template <typename Find>
[[gnu::always_inline]] inline void DiffusePixel(const NearestEntries::View<Find>& view, const unsigned char* __restrict in, unsigned char* __restrict out,
                                                const Lanes* __restrict incoming, Lanes* __restrict below, Carry& carry) {
  const Lanes source{in[0], in[1], in[2], 0};
  Lanes value = source + ((*incoming + carry.Right + 8) >> 4);
  value = value < 0 ? 0 : value;
  value = value > 255 ? 255 : value;
  const LaneBytes bytes = __builtin_convertvector(value, LaneBytes);
  std::uint32_t colour;
  std::memcpy(&colour, &bytes, sizeof colour);
  const unsigned entry = view.Nearest(colour);
  const std::uint32_t packed = view.Packed[entry];
  out[0] = static_cast<unsigned char>(packed);
  out[1] = static_cast<unsigned char>(packed >> 8);
  out[2] = static_cast<unsigned char>(packed >> 16);
  const Lanes error = value - view.Colours[entry];
  carry.Right = error * 7;
  below[-1] = carry.Below + error * 3;  // the column before this one: complete now
  carry.Below = carry.After + error * 5;
  carry.After = error;
}

// Four rows at a time, each two pixels behind the one above: by then every sum it takes
// from the row above is complete, so the result is that of one row after the other, while
// the four chains of dependent steps overlap in the processor (two left it waiting).
constexpr int kRowsTogether = 4;

template <typename Find>
void DiffuseRows(const unsigned char* in, unsigned char* out, int width, int rows, const NearestEntries::View<Find> view) {
  const size_t rowSamples = static_cast<size_t>(width) * 3, sumColumns = static_cast<size_t>(width) + 1;
  // Each row's sums from the row above, a spare column before column 0: row k reads
  // sums[k] and writes sums[k + 1].
  std::vector<Lanes> storage(sumColumns * (kRowsTogether + 1), Lanes{});
  std::array<Lanes*, kRowsTogether + 1> sums{};
  for (size_t k = 0; k < sums.size(); ++k) sums[k] = storage.data() + 1 + sumColumns * k;
  for (int y = 0; y < rows; y += kRowsTogether) {
    const int group = std::min(kRowsTogether, rows - y);
    const unsigned char* groupIn = in + rowSamples * static_cast<size_t>(y);
    unsigned char* groupOut = out + rowSamples * static_cast<size_t>(y);
    std::array<Carry, kRowsTogether> carry{};
    const auto step = [&](int k, int x) {
      const size_t at = rowSamples * size_t(k) + size_t(x) * 3;
      DiffusePixel(view, groupIn + at, groupOut + at, sums[size_t(k)] + x, sums[size_t(k) + 1] + x, carry[size_t(k)]);
    };
    // Where rows start or end; a row's last open sums are stored as it ends, for the row below.
    const auto edge = [&](int x) {
      for (int k = 0; k < group; ++k) {
        if (x - 2 * k < 0 || x - 2 * k >= width) continue;
        step(k, x - 2 * k);
        if (x - 2 * k == width - 1) sums[size_t(k) + 1][width - 1] = carry[size_t(k)].Below;
      }
    };
    const int lag = 2 * (group - 1), end = width + lag;
    int x = 0;
    for (; x < std::min(lag, end); ++x) edge(x);
    for (; group == kRowsTogether && x < width - 1; ++x) {
      for (int k = 0; k < kRowsTogether; ++k) step(k, x - 2 * k);
    }
    for (; x < end; ++x) edge(x);
    std::swap(sums[0], sums[size_t(group)]);  // the last row written is the next group's first
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
  const NearestEntries nearest(palette, double(width) * height);
  nearest.WithView([&](const auto view) {
    InParts(height, std::min(Cores(), std::max(1, height / 64)), [&](int first, int last) {
      const size_t offset = rowSamples * static_cast<size_t>(first);
      DiffuseRows(in + offset, out + offset, width, last - first, view);
    });
  });
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
