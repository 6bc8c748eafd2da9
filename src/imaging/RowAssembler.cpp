#include "imaging/RowAssembler.h"

#include <glib.h>

#include <algorithm>
#include <cstring>

namespace imaging {

namespace {

constexpr std::int64_t kBandBytes = std::int64_t(4) << 20;

size_t PixelCount(int width, int height) { return size_t(width) * size_t(height); }

void ReleaseBuffer(VipsImage*, gpointer owner) { delete static_cast<RowAssembler::Buffer*>(owner); }
void ReleaseQImage(VipsImage*, gpointer owner) { delete static_cast<QImage*>(owner); }

// Opaque pictures up to this size take Qt's own conversion to packed RGB, several times
// quicker than the bands below; larger ones are converted in their own buffer, to spare memory.
constexpr std::int64_t kQuickPixels = std::int64_t(16) << 20;

// The pixels in a QImage of packed RGB rows (its rows are padded to four bytes when the
// width asks for it: then they are packed into a buffer of their own).
std::optional<Image> ConvertedByQt(const QImage& source) {
  auto* rgb = new QImage(source.convertToFormat(QImage::Format_RGB888));
  const int width = rgb->width(), height = rgb->height();
  const size_t rowBytes = size_t(width) * 3, bytes = rowBytes * size_t(height);
  vips::VImage image;
  if (rgb->isNull()) {
    delete rgb;
    return std::nullopt;
  }
  if (size_t(rgb->bytesPerLine()) == rowBytes) {
    image = vips::VImage::new_from_memory(rgb->bits(), bytes, width, height, 3, VIPS_FORMAT_UCHAR);
    g_signal_connect(image.get_image(), "postclose", G_CALLBACK(ReleaseQImage), rgb);
  } else {
    auto* owner = new RowAssembler::Buffer(static_cast<uchar*>(g_malloc(bytes)), [](uchar* pixels) { g_free(pixels); });
    for (int y = 0; y < height; ++y) std::memcpy(owner->get() + rowBytes * size_t(y), rgb->constScanLine(y), rowBytes);
    delete rgb;
    image = vips::VImage::new_from_memory(owner->get(), bytes, width, height, 3, VIPS_FORMAT_UCHAR);
    g_signal_connect(image.get_image(), "postclose", G_CALLBACK(ReleaseBuffer), owner);
  }
  image.get_image()->Type = VIPS_INTERPRETATION_sRGB;
  return Image::FromInternal(Image::Pixels{image});
}


}  // namespace

vips::VImage RowsIn(void* data, int width, int rows, int bands, VipsInterpretation interpretation) {
  return vips::VImage::new_from_memory(data, PixelCount(width, rows) * size_t(bands), width, rows, bands,
                                       VIPS_FORMAT_UCHAR)
      .copy(vips::VImage::option()->set("interpretation", interpretation));
}

int RowAssembler::BandRows(int width) {
  return static_cast<int>(std::clamp<std::int64_t>(kBandBytes / (std::int64_t(std::max(width, 1)) * 4), 1, 4096));
}

RowAssembler::RowAssembler(int width, int height, bool alpha, bool onWhite)
    : RowAssembler(width, height, alpha, onWhite,
                   Buffer(static_cast<uchar*>(AllocatePixels(PixelCount(width, height) * (alpha && !onWhite ? 4 : 3))),
                          [](uchar* pixels) { g_free(pixels); })) {}

RowAssembler::RowAssembler(int width, int height, bool alpha, bool onWhite, Buffer into)
    : width_(width), height_(height), bands_(alpha && !onWhite ? 4 : 3), onWhite_(onWhite), buffer_(std::move(into)) {}

bool RowAssembler::Add(const vips::VImage& rows) {
  if (!buffer_ || rows.width() != width_ || rows.height() > height_ - filled_) return false;
  vips::VImage ready = Normalized(rows);
  if (onWhite_) ready = FlattenedOnWhite(ready);
  if (ready.bands() != bands_) return false;
  size_t size = 0;
  void* band = ready.write_to_memory(&size);
  std::memcpy(buffer_.get() + PixelCount(width_, filled_) * size_t(bands_), band, size);
  g_free(band);
  filled_ += rows.height();
  return true;
}

std::optional<Image> RowAssembler::Finish() {
  if (!Complete() || !buffer_) return std::nullopt;
  auto* owner = new Buffer(std::move(buffer_));
  vips::VImage image = vips::VImage::new_from_memory(owner->get(), PixelCount(width_, height_) * size_t(bands_), width_,
                                                     height_, bands_, VIPS_FORMAT_UCHAR);
  g_signal_connect(image.get_image(), "postclose", G_CALLBACK(ReleaseBuffer), owner);
  image.get_image()->Type = VIPS_INTERPRETATION_sRGB;
  return Image::FromInternal(Image::Pixels{image});
}

namespace {

// 32-bit pixels become the picture within their own buffer: RGBA (or RGBX) in place, then
// each band normalised into the front of the same memory.
std::optional<Image> InItsOwnBuffer(QImage source, bool onWhite) {
  const bool alpha = source.hasAlphaChannel();
  source.convertTo(alpha ? QImage::Format_RGBA8888 : QImage::Format_RGBX8888);
  auto* kept = new QImage(std::move(source));
  uchar* pixels = kept->bits();
  const int width = kept->width(), height = kept->height();
  RowAssembler assembler(width, height, alpha, onWhite, RowAssembler::Buffer(pixels, [kept](uchar*) { delete kept; }));
  if (!pixels) return std::nullopt;
  const int step = RowAssembler::BandRows(width);
  for (int y = 0; y < height; y += step) {
    const int rows = std::min(step, height - y);
    vips::VImage band = RowsIn(pixels + PixelCount(width, y) * 4, width, rows, 4);
    if (!alpha) band = band.extract_band(0, vips::VImage::option()->set("n", 3));
    if (!assembler.Add(band)) return std::nullopt;
  }
  return assembler.Finish();
}

// Other pixels are converted a band at a time into a buffer of their own.
std::optional<Image> BesideItsOwnBuffer(const QImage& source, bool onWhite) {
  const bool alpha = source.hasAlphaChannel();
  const QImage::Format format = alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888;
  const int bands = alpha ? 4 : 3;
  RowAssembler assembler(source.width(), source.height(), alpha, onWhite);
  const int step = RowAssembler::BandRows(source.width());
  for (int y = 0; y < source.height(); y += step) {
    const QImage band = source.copy(0, y, source.width(), std::min(step, source.height() - y)).convertToFormat(format);
    // Qt pads each row to four bytes; libvips wants them packed.
    const qsizetype rowBytes = qsizetype(band.width()) * bands;
    QByteArray packed(rowBytes * band.height(), Qt::Uninitialized);
    for (int row = 0; row < band.height(); ++row) {
      std::memcpy(packed.data() + rowBytes * row, band.constScanLine(row), size_t(rowBytes));
    }
    if (!assembler.Add(RowsIn(packed.data(), band.width(), band.height(), bands))) return std::nullopt;
  }
  return assembler.Finish();
}

}  // namespace

std::optional<Image> FromQImageInBands(QImage source, bool onWhite) {
  Initialize();
  if (source.isNull()) return std::nullopt;
  try {
    if (!source.hasAlphaChannel() && std::int64_t(source.width()) * source.height() <= kQuickPixels) return ConvertedByQt(source);
    if (source.depth() == 32) return InItsOwnBuffer(std::move(source), onWhite);
    return BesideItsOwnBuffer(source, onWhite);
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

}  // namespace imaging
