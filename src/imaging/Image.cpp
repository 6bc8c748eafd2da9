#include "imaging/Image.h"

#include "imaging/ImageInternal.h"
#include "imaging/RowAssembler.h"
#include "imaging/Streaming.h"

#include <QSize>

#include <cmath>
#include <new>
#include <mutex>
#include <optional>

namespace imaging {

void Initialize() {
  static std::once_flag once;
  std::call_once(once, [] {
    if (StartVips() != 0) return;
    TrustCoders();
    // The program keeps the images it decoded; libvips' operation cache would keep a
    // second copy of each (and answer repeated benchmark runs from memory).
    vips_cache_set_max(0);
    // Decoders' warnings (a damaged tile that was recovered) mean nothing to a user.
    g_log_set_handler("VIPS", G_LOG_LEVEL_WARNING, [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
  });
}

vips::VImage AsSamples(const vips::VImage& image, VipsBandFormat format) {
  const auto interpretation = format == VIPS_FORMAT_USHORT ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB;
  if (image.format() == format && image.interpretation() == interpretation) return image;  // a pixels' copy saved
  const vips::VImage cast = image.format() == format ? image : image.cast(format);
  return cast.copy(vips::VImage::option()->set("interpretation", interpretation));
}

vips::VImage EightBitOf(const vips::VImage& image) {
  if (!IsDeep(image)) return image;
  // v >> 8 gives back exactly the 8-bit value a 16-bit sample was widened from (v * 257).
  return AsSamples(image >> 8, VIPS_FORMAT_UCHAR);
}

vips::VImage Normalized(vips::VImage image) {
  image = WithUsableColours(image);
  const bool deep = image.format() == VIPS_FORMAT_USHORT && (image.interpretation() == VIPS_INTERPRETATION_RGB16 ||
                                                             image.interpretation() == VIPS_INTERPRETATION_GREY16);
  if (image.format() == VIPS_FORMAT_USHORT && !deep) image = (image / 256).cast(VIPS_FORMAT_UCHAR);
  image = image.colourspace(deep ? VIPS_INTERPRETATION_RGB16 : VIPS_INTERPRETATION_sRGB);
  const VipsBandFormat format = deep ? VIPS_FORMAT_USHORT : VIPS_FORMAT_UCHAR;
  if (image.format() != format) image = image.cast(format);
  if (image.bands() > 4) image = image.extract_band(0, vips::VImage::option()->set("n", 4));
  const vips::VImage grey = image.extract_band(0);
  // (a braced list calls libvips' static bandjoin, which joins only the images listed)
  if (image.bands() == 1) image = vips::VImage::bandjoin({grey, grey, grey});
  if (image.bands() == 2) image = vips::VImage::bandjoin({grey, grey, grey, image.extract_band(1)});
  return AsSamples(image, format);
}

namespace {

// libvips' HEIF loader (8.14) lends its profile from memory that its own image frees: the
// picture kept gets metadata of its own while the loader's image still lives.
vips::VImage WithOwnMetadata(vips::VImage image) {
  for (const char* name : {VIPS_META_ICC_NAME, VIPS_META_EXIF_NAME, VIPS_META_XMP_NAME}) {
    if (image.get_typeof(name) == 0) continue;
    size_t length = 0;
    const void* data = image.get_blob(name, &length);
    vips_image_set_blob_copy(image.get_image(), name, data, length);
  }
  return image;
}

}  // namespace

void CopyMetadata(const vips::VImage& from, vips::VImage& to) {
  to.get_image()->Xres = from.xres();
  to.get_image()->Yres = from.yres();
  gchar** names = vips_image_get_fields(from.get_image());
  for (gchar** name = names; *name; ++name) {
    if (vips_image_get_typeof(to.get_image(), *name) != 0) continue;
    GValue value = G_VALUE_INIT;
    if (vips_image_get(from.get_image(), *name, &value) == 0) {
      vips_image_set(to.get_image(), *name, &value);
      g_value_unset(&value);
    }
  }
  g_strfreev(names);
}

Image Wrap(vips::VImage image, bool onWhite) {
  image = Normalized(image);
  if (onWhite) image = FlattenedOnWhite(image);
  return Image::FromInternal(Image::Pixels{WithOwnMetadata(InMemory(image))});
}

Image::Image(std::shared_ptr<const Pixels> pixels) : pixels_(std::move(pixels)) {}

Image Image::FromInternal(Pixels pixels) { return Image(std::make_shared<const Pixels>(std::move(pixels))); }

// libvips keeps pixels per millimetre, 1 when the file says nothing.
double Image::DotsPerInch() const {
  const double perMillimetre = pixels_->image.xres();
  return perMillimetre > 1.0001 ? perMillimetre * 25.4 : 0;
}

const Image::Pixels& Image::Internal() const {
  WaitForRows(*pixels_);
  return *pixels_;
}

int Image::Width() const { return pixels_->image.width(); }
int Image::Height() const { return pixels_->image.height(); }
int Image::Bands() const { return pixels_->image.bands(); }
int Image::BitsPerSample() const { return IsDeep(pixels_->image) ? 16 : 8; }

Image Image::EightBit() const {
  if (!IsDeep(pixels_->image)) return *this;
  const vips::VImage eight = EightBitOf(Internal().image);
  return FromInternal(Pixels{StreamingScope::Active() ? eight : InMemory(eight)});
}

namespace {

// The size within the box, keeping the proportions; nullopt when the image already fits.
std::optional<QSize> FittingSize(const vips::VImage& image, int maxWidth, int maxHeight) {
  const double scale = std::min({1.0, double(maxWidth) / image.width(), double(maxHeight) / image.height()});
  if (scale >= 1.0) return std::nullopt;
  return QSize(std::max(1, int(std::lround(image.width() * scale))), std::max(1, int(std::lround(image.height() * scale))));
}

}  // namespace

Image Image::FitWithinForDisplay(int maxWidth, int maxHeight) const {
  const auto size = FittingSize(pixels_->image, maxWidth, maxHeight);
  return size ? ReducedForDisplay(size->width(), size->height()) : OnWhite();
}

Image Image::FitWithin(int maxWidth, int maxHeight) const {
  const vips::VImage& image = Internal().image;
  const auto size = FittingSize(image, maxWidth, maxHeight);
  if (!size) return *this;
  try {
    return FromInternal(Pixels{ReduceTo(image, size->width(), size->height())});
  } catch (const vips::VError&) {
    vips_error_clear();
    return *this;
  }
}

Image Image::OnWhite() const {
  if (!HasAlpha()) return *this;
  return FromInternal(Pixels{InMemory(FlattenedOnWhite(Internal().image))});
}

namespace {

// No copy: the QImage holds a reference to the pixels and drops it when it goes.
QImage Wrapped(const std::shared_ptr<const Image::Pixels>& pixels, int bands, QImage::Format format) {
  WaitForRows(*pixels);
  const vips::VImage& image = pixels->image;
  auto* owner = new std::shared_ptr<const Image::Pixels>(pixels);
  const qsizetype stride = static_cast<qsizetype>(image.width()) * bands;
  return QImage(static_cast<const uchar*>(image.data()), image.width(), image.height(), stride, format,
                [](void* info) { delete static_cast<std::shared_ptr<const Image::Pixels>*>(info); }, owner);
}

}  // namespace

QImage Image::ToQImage() const { return Wrapped(OnWhite().InSrgb().pixels_, 3, QImage::Format_RGB888); }

QImage Image::ToQImageWithAlpha() const {
  return HasAlpha() ? Wrapped(InSrgb().pixels_, 4, QImage::Format_RGBA8888) : ToQImage();
}

QImage Image::ForScreen() const {
  const Image shown = FromInternal(Pixels{imaging::ForScreen(OnWhite().Internal().image)});
  return Wrapped(shown.pixels_, 3, QImage::Format_RGB888);
}

QImage Image::ForScreenWithAlpha() const {
  if (!HasAlpha()) return ForScreen();
  const Image shown = FromInternal(Pixels{imaging::ForScreen(Internal().image)});
  return Wrapped(shown.pixels_, 4, QImage::Format_RGBA8888);
}

Image Image::FromQImage(const QImage& source) {
  if (auto image = FromQImageInBands(source, false)) return *image;
  throw std::bad_alloc();
}

}  // namespace imaging
