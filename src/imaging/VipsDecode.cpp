// libvips' own loaders in this process.
#include "imaging/Decoders.h"
#include "base/FileNames.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"

#include <QFile>

namespace imaging {

namespace {

// Opens lazily (header only) and refuses what is over the pixel limit.
std::optional<vips::VImage> OpenChecked(const QByteArray& name) {
  vips::VImage image = vips::VImage::new_from_file(name.constData(), vips::VImage::option()->set("access", "sequential"));
  if (std::int64_t(image.width()) * image.height() > kMaxPixels) return std::nullopt;
  return image;
}

// The same, when the pixels are already upright: they can be read once, top to bottom
// (turning them upright needs random access).
std::optional<vips::VImage> OpenUpright(const QByteArray& name) {
  const auto image = OpenChecked(name);
  if (!image || vips_image_get_orientation(image->get_image()) > 1) return std::nullopt;
  return image;
}

}  // namespace

std::optional<Image> DecodeWithVips(const QString& path, int maxWidth, int maxHeight) {
  Initialize();
  const QByteArray name = base::EncodeFileName(path);
  try {
    if (!OpenChecked(name)) return std::nullopt;
    if (maxWidth > 0 && maxHeight > 0) {
      auto options = vips::VImage::option()->set("height", maxHeight)->set("size", VIPS_SIZE_DOWN);
      return Wrap(vips::VImage::thumbnail(name.constData(), maxWidth, options));
    }
    if (const auto upright = OpenUpright(name)) return Wrap(*upright);  // one pass straight into memory
    return Wrap(vips::VImage::new_from_file(name.constData()).autorot());
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<Image> OpenWithVipsInOrder(const QString& path) {
  Initialize();
  try {
    const auto upright = OpenUpright(base::EncodeFileName(path));
    if (!upright) return std::nullopt;
    return Image::FromInternal(Image::Pixels{Normalized(*upright)});
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<QSize> VipsHeaderSize(const QString& path) {
  Initialize();
  try {
    const vips::VImage image = vips::VImage::new_from_file(base::EncodeFileName(path).constData());
    const bool swapped = vips_image_get_orientation_swap(image.get_image());
    return swapped ? QSize(image.height(), image.width()) : QSize(image.width(), image.height());
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

}  // namespace imaging
