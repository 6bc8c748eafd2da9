#include "imaging/Image.h"

#include <vips/vips8>

#include <QFile>

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
    return Image(std::make_shared<const Image::Pixels>(Image::Pixels{decoded}));
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

QImage Image::ToQImageFitting(int maxWidth, int maxHeight) const {
  vips::VImage image = pixels_->image;
  const double scale = std::min({1.0, double(maxWidth) / image.width(), double(maxHeight) / image.height()});
  try {
    if (scale < 1.0) image = image.resize(std::max(scale, 1e-4)).copy_memory();
  } catch (const vips::VError&) {
    vips_error_clear();
  }
  const auto* data = static_cast<const uchar*>(image.data());
  const qsizetype stride = static_cast<qsizetype>(image.width()) * 3;
  return QImage(data, image.width(), image.height(), stride, QImage::Format_RGB888).copy();
}

}  // namespace imaging
