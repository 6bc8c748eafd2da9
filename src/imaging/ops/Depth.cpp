// Color Depth: palette reduction by libimagequant (the quantiser of pngquant) with
// Floyd-Steinberg error diffusion; the image stays 24-bit RGB, showing only the
// palette's colours.
#include "imaging/Operations.h"
#include "imaging/ops/OpsInternal.h"

#include <libimagequant.h>

#include <cmath>
#include <memory>

namespace imaging::ops {

namespace {

struct LiqDeleter {
  void operator()(liq_attr* p) const { liq_attr_destroy(p); }
  void operator()(liq_image* p) const { liq_image_destroy(p); }
  void operator()(liq_result* p) const { liq_result_destroy(p); }
};
template <typename T>
using LiqPtr = std::unique_ptr<T, LiqDeleter>;

// libimagequant reads the RGB rows through this callback, so no RGBA copy is made.
void ReadRow(liq_color out[], int row, int width, void* user) {
  const auto& rgb = *static_cast<const vips::VImage*>(user);
  const auto* in = static_cast<const unsigned char*>(rgb.data()) + static_cast<size_t>(row) * static_cast<size_t>(width) * 3;
  for (int x = 0; x < width; ++x, in += 3) out[x] = liq_color{in[0], in[1], in[2], 255};
}

// The palette is chosen from a copy of about a megapixel: as good for a photo, and the
// choice no longer grows with the image.
constexpr double kPalettePixels = 1e6;

vips::VImage Quantised(const vips::VImage& rgb, int colours) {
  const LiqPtr<liq_attr> attr(liq_attr_create());
  liq_set_max_colors(attr.get(), colours);
  liq_set_speed(attr.get(), 8);
  const double scale = std::sqrt(kPalettePixels / (double(rgb.width()) * rgb.height()));
  vips::VImage sample = scale < 1 ? rgb.resize(scale).copy_memory() : rgb;
  const LiqPtr<liq_image> sampled(liq_image_create_custom(attr.get(), ReadRow, &sample, sample.width(), sample.height(), 0));
  vips::VImage source = rgb;  // the callbacks read from memory
  const LiqPtr<liq_image> input(liq_image_create_custom(attr.get(), ReadRow, &source, rgb.width(), rgb.height(), 0));
  liq_result* raw = nullptr;
  if (!input || !sampled || liq_image_quantize(sampled.get(), attr.get(), &raw) != LIQ_OK) {
    throw vips::VError("quantisation failed");
  }
  const LiqPtr<liq_result> result(raw);
  liq_set_dithering_level(result.get(), 1.0f);
  const size_t pixels = static_cast<size_t>(rgb.width()) * static_cast<size_t>(rgb.height());
  auto* indices = static_cast<unsigned char*>(g_malloc(pixels));
  if (liq_write_remapped_image(result.get(), input.get(), indices, pixels) != LIQ_OK) {
    g_free(indices);
    throw vips::VError("remapping failed");
  }
  const liq_palette* palette = liq_get_palette(result.get());
  std::vector<unsigned char> table(256 * 3, 0);
  for (unsigned i = 0; i < palette->count; ++i) {
    table[i * 3] = palette->entries[i].r;
    table[i * 3 + 1] = palette->entries[i].g;
    table[i * 3 + 2] = palette->entries[i].b;
  }
  const vips::VImage lut = vips::VImage::new_from_memory(table.data(), table.size(), 256, 1, 3, VIPS_FORMAT_UCHAR);
  const vips::VImage index =
      vips::VImage::new_from_memory_steal(indices, pixels, rgb.width(), rgb.height(), 1, VIPS_FORMAT_UCHAR);
  return index.maplut(lut).copy_memory();  // before `table` goes
}

}  // namespace

Image ColorDepth(const Image& image, int bits) {
  const Image flat = image.OnWhite();
  if (bits != 1 && bits != 4 && bits != 8) return flat;
  return detail::OnWholeImage(flat, [bits](const vips::VImage& rgb) { return Quantised(rgb.copy_memory(), 1 << bits); });
}

}  // namespace imaging::ops
