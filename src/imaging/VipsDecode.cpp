// libvips' own loaders in this process.
#include "imaging/Decoders.h"
#include "base/FileNames.h"
#include "imaging/ImageInternal.h"
#include "imaging/Loader.h"

#include <QFile>

#include <unistd.h>
#include <algorithm>
#include <string_view>

namespace imaging {

vips::VSource SourceOf(const QString& path) {
  const int descriptor = base::OpenRegularFile(path);
  if (descriptor < 0) throw vips::VError("not a regular file");
  vips::VSource source = vips::VSource::new_from_descriptor(descriptor);  // libvips keeps its own duplicate
  ::close(descriptor);
  return source;
}

namespace {

// Page `page` of a file of several (0 for any other file: not every loader takes the option).
vips::VOption* PageOption(vips::VOption* options, int page) { return page > 0 ? options->set("page", page) : options; }

// Opens lazily (header only) and refuses what is over the pixel limit.
std::optional<vips::VImage> OpenChecked(const QString& path, int page = 0) {
  const vips::VSource source = SourceOf(path);  // first: the options below are freed only by the call
  vips::VImage image = vips::VImage::new_from_source(source, "", PageOption(vips::VImage::option()->set("access", "sequential"), page));
  if (std::int64_t(image.width()) * image.height() > kMaxPixels) return std::nullopt;
  return image;
}

// The same, when the pixels are already upright: they can be read once, top to bottom
// (turning them upright needs random access).
std::optional<vips::VImage> OpenUpright(const QString& path) {
  const auto image = OpenChecked(path);
  if (!image || vips_image_get_orientation(image->get_image()) > 1) return std::nullopt;
  return image;
}

// libvips' thumbnail turns CMYK into sRGB a way of its own; a CMYK picture is reduced after
// the same transform a whole decode makes (a JPEG shrunk on load by up to 8 first).
std::optional<Image> DecodeCmykFitting(const vips::VImage& header, const QString& path, int maxWidth, int maxHeight) {
  const char* loader = nullptr;
  const bool jpeg = vips_image_get_string(header.get_image(), "vips-loader", &loader) == 0 && loader &&
                    std::string_view(loader).starts_with("jpeg");
  vips_error_clear();
  const int ratio = std::min(header.width() / maxWidth, header.height() / maxHeight);
  int shrink = 1;
  while (jpeg && shrink < 8 && shrink * 2 <= ratio) shrink *= 2;
  const vips::VSource source = SourceOf(path);  // first: the options are freed only by the call
  vips::VImage decoded = vips::VImage::new_from_source(source, "", jpeg ? vips::VImage::option()->set("shrink", shrink)
                                                                           : vips::VImage::option());
  if (vips_image_get_orientation(decoded.get_image()) > 1) decoded = decoded.autorot();
  return Wrap(decoded).FitWithin(maxWidth, maxHeight);
}

}  // namespace

std::optional<Image> DecodeWithVips(const QString& path, int maxWidth, int maxHeight, bool onWhite, int page) {
  Initialize();
  try {
    const auto image = OpenChecked(path, page);
    if (!image) return std::nullopt;
    if (maxWidth > 0 && maxHeight > 0 && image->interpretation() == VIPS_INTERPRETATION_CMYK) {
      return DecodeCmykFitting(*image, path, maxWidth, maxHeight);
    }
    if (maxWidth > 0 && maxHeight > 0) {
      const vips::VSource source = SourceOf(path);  // first: the options are freed only by the call
      auto options = vips::VImage::option()->set("height", maxHeight)->set("size", VIPS_SIZE_DOWN)->set("intent", VIPS_INTENT_RELATIVE);
      return Wrap(WithStatedColours(vips::VImage::thumbnail_source(source, maxWidth, options), path), onWhite);
    }
    // Upright pixels go in one pass straight into memory; turning them needs random access.
    if (vips_image_get_orientation(image->get_image()) <= 1) return Wrap(WithStatedColours(*image, path), onWhite);
    const vips::VSource source = SourceOf(path);
    return Wrap(WithStatedColours(vips::VImage::new_from_source(source, "", PageOption(vips::VImage::option(), page)).autorot(), path),
                onWhite);
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<Image> OpenWithVipsInOrder(const QString& path) {
  Initialize();
  try {
    const auto upright = OpenUpright(path);
    if (!upright) return std::nullopt;
    return Image::FromInternal(Image::Pixels{Normalized(WithStatedColours(*upright, path))});
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<QSize> VipsHeaderSize(const QString& path) {
  Initialize();
  try {
    const vips::VImage image = vips::VImage::new_from_source(SourceOf(path), "");
    const bool swapped = vips_image_get_orientation_swap(image.get_image());
    return swapped ? QSize(image.height(), image.width()) : QSize(image.width(), image.height());
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<SourceFacts> VipsSourceFacts(const QString& path) {
  Initialize();
  try {
    const vips::VImage image = vips::VImage::new_from_source(SourceOf(path), "");
    const int pages = std::max(1, vips_image_get_n_pages(image.get_image()));
    return SourceFacts{pages, int(vips_format_sizeof(image.format())) * 8, pages > 1 && image.get_typeof("delay") != 0};
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

}  // namespace imaging
