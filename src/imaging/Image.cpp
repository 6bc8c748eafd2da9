#include "imaging/Image.h"

#include <vips/vips8>

#include <QFile>
#include <QPainter>

#include <cstring>

#include <mutex>

namespace imaging {

struct Image::Pixels {
  vips::VImage image;  // uchar sRGB, 3 bands, in memory
};

void Initialize() {
  static std::once_flag once;
  std::call_once(once, [] {
    if (VIPS_INIT("vistrel") != 0) return;
    vips_block_untrusted_set(TRUE);
  });
}

Image::Image(std::shared_ptr<const Pixels> pixels) : pixels_(std::move(pixels)) {}

Image Image::FromPixels(Pixels pixels) { return Image(std::make_shared<const Pixels>(std::move(pixels))); }

int Image::Width() const { return pixels_->image.width(); }
int Image::Height() const { return pixels_->image.height(); }

namespace {

vips::VImage ToDisplayRgb(vips::VImage image) {
  image = image.autorot();
  if (image.has_alpha()) {
    image = image.flatten(vips::VImage::option()->set("background", std::vector<double>{255, 255, 255}));
  }
  image = image.colourspace(VIPS_INTERPRETATION_sRGB);
  if (image.bands() > 3) image = image.extract_band(0, vips::VImage::option()->set("n", 3));
  return image.cast(VIPS_FORMAT_UCHAR);
}

}  // namespace

std::optional<Image> LoadFile(const QString& path) {
  Initialize();
  try {
    const QByteArray name = QFile::encodeName(path);
    vips::VImage decoded = ToDisplayRgb(vips::VImage::new_from_file(name.constData())).copy_memory();
    return Image::FromPixels(Image::Pixels{decoded});
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

Image Image::FitWithin(int maxWidth, int maxHeight) const {
  const vips::VImage& image = pixels_->image;
  const double scale = std::min({1.0, double(maxWidth) / image.width(), double(maxHeight) / image.height()});
  if (scale >= 1.0) return *this;
  try {
    return FromPixels(Pixels{image.resize(std::max(scale, 1e-4)).copy_memory()});
  } catch (const vips::VError&) {
    vips_error_clear();
    return *this;
  }
}

QImage Image::ToQImage() const {
  const vips::VImage& image = pixels_->image;
  const auto* data = static_cast<const uchar*>(image.data());
  const qsizetype stride = static_cast<qsizetype>(image.width()) * 3;
  return QImage(data, image.width(), image.height(), stride, QImage::Format_RGB888).copy();
}

Image Image::FromQImage(const QImage& source) {
  Initialize();
  QImage rgb(source.size(), QImage::Format_RGB888);
  rgb.fill(Qt::white);
  {
    QPainter painter(&rgb);
    painter.drawImage(0, 0, source);
  }
  const size_t rowBytes = static_cast<size_t>(rgb.width()) * 3;
  const size_t size = rowBytes * static_cast<size_t>(rgb.height());
  // libvips takes the buffer and frees it with g_free when the image goes.
  auto* packed = static_cast<uchar*>(g_malloc(size));
  for (int y = 0; y < rgb.height(); ++y) std::memcpy(packed + rowBytes * static_cast<size_t>(y), rgb.constScanLine(y), rowBytes);
  vips::VImage image = vips::VImage::new_from_memory_steal(packed, size, rgb.width(), rgb.height(), 3, VIPS_FORMAT_UCHAR);
  return FromPixels(Pixels{image});
}

}  // namespace imaging
