// libvips' own loaders in this process.
#include "imaging/Decoders.h"
#include "base/FileNames.h"
#include "imaging/ImageInternal.h"
#include "imaging/JpegDecode.h"
#include "imaging/Loader.h"

#include <QFile>

#include <unistd.h>
#include <algorithm>
#include <string_view>
#include <thread>

namespace imaging {

vips::VSource SourceOf(const QString& path) {
  const int descriptor = base::OpenRegularFile(path);
  if (descriptor < 0) throw vips::VError("not a regular file");
  LoadFormatModulesFor(descriptor);
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

// Whether libvips reads the file with this loader ("jpeg", "heif"...).
bool LoadedBy(const vips::VImage& header, std::string_view name) {
  const char* loader = nullptr;
  const bool match = vips_image_get_string(header.get_image(), "vips-loader", &loader) == 0 && loader &&
                     std::string_view(loader).starts_with(name);
  vips_error_clear();
  return match;
}

bool IsJpeg(const vips::VImage& header) { return LoadedBy(header, "jpeg"); }

// The picture a HEIF file keeps beside its image (phones store one of about 320 pixels),
// or nullopt when it keeps none: libvips then gives the whole image at its full size.
std::optional<Image> HeifThumbnail(const QString& path, const vips::VImage& header) {
  const vips::VSource source = SourceOf(path);  // first: the options are freed only by the call
  const vips::VImage thumbnail = vips::VImage::new_from_source(source, "", vips::VImage::option()->set("thumbnail", true));
  if (thumbnail.width() >= header.width()) return std::nullopt;
  return Wrap(WithStatedColours(thumbnail, path));
}

// The deepest shrink on load (1, 2, 4 or 8; only a JPEG has one, done by its DCT) that
// still covers the picture fitted within the box.
int ShrinkCovering(const vips::VImage& header, int maxWidth, int maxHeight) {
  if (!IsJpeg(header)) return 1;
  const bool swapped = vips_image_get_orientation_swap(header.get_image());
  const double width = swapped ? header.height() : header.width();
  const double height = swapped ? header.width() : header.height();
  const double scale = std::min(maxWidth / width, maxHeight / height);
  int shrink = 1;
  while (shrink < 8 && shrink * 2 * scale <= 1) shrink *= 2;
  return shrink;
}

// The file's pixels with a shrink on load; a JPEG's by TurboJPEG where it can.
vips::VImage ShrunkOnLoad(const QString& path, const vips::VImage& header, int shrink) {
  if (IsJpeg(header)) {
    if (auto decoded = DecodeJpeg(path, header, shrink)) return *decoded;
  }
  const vips::VSource source = SourceOf(path);  // first: the options are freed only by the call
  return vips::VImage::new_from_source(source, "", shrink > 1 ? vips::VImage::option()->set("shrink", shrink)
                                                              : vips::VImage::option());
}

// A JPEG decodes in at most two bands at once: a third would first read two thirds of the
// file without transforming it.
int JpegThreads(DecodeCores cores) {
  return cores == DecodeCores::All ? int(std::clamp(std::thread::hardware_concurrency(), 1u, 2u)) : 1;
}

// Decoded pixels upright, in their stated colours.
Image Finished(vips::VImage decoded, const QString& path) {
  if (vips_image_get_orientation(decoded.get_image()) > 1) decoded = decoded.autorot();
  return Wrap(WithStatedColours(decoded, path));
}

// The whole file decoded with a shrink on load, upright, in its stated colours.
Image DecodeShrunk(const QString& path, const vips::VImage& header, int shrink) {
  return Finished(ShrunkOnLoad(path, header, shrink), path);
}

}  // namespace

std::optional<Image> DecodeWithVips(const QString& path, int maxWidth, int maxHeight, bool onWhite, int page,
                                    DecodeCores cores) {
  Initialize();
  try {
    const auto image = OpenChecked(path, page);
    if (!image) return std::nullopt;
    // A JPEG is shrunk by its DCT as far as still covers the fitted picture, then reduced:
    // libvips' thumbnail leaves twice that, so a 12 MP photo for a 1920 box is decoded whole.
    // CMYK takes the whole decode's transform to sRGB rather than the thumbnail's own.
    if (maxWidth > 0 && maxHeight > 0 && (IsJpeg(*image) || image->interpretation() == VIPS_INTERPRETATION_CMYK)) {
      return DecodeShrunk(path, *image, ShrinkCovering(*image, maxWidth, maxHeight)).FitWithin(maxWidth, maxHeight);
    }
    if (maxWidth > 0 && maxHeight > 0) {
      const vips::VSource source = SourceOf(path);  // first: the options are freed only by the call
      auto options = vips::VImage::option()->set("height", maxHeight)->set("size", VIPS_SIZE_DOWN)->set("intent", VIPS_INTENT_RELATIVE);
      return Wrap(WithStatedColours(vips::VImage::thumbnail_source(source, maxWidth, options), path), onWhite);
    }
    if (IsJpeg(*image)) {
      if (auto decoded = DecodeJpeg(path, *image, 1, JpegThreads(cores))) return Finished(*decoded, path);
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

std::optional<Image> LoadGlimpse(const QString& path) {
  Initialize();
  try {
    const auto header = OpenChecked(path);
    if (!header) return std::nullopt;
    if (IsJpeg(*header)) return DecodeShrunk(path, *header, 8);
    if (LoadedBy(*header, "heif")) return HeifThumbnail(path, *header);
    return std::nullopt;
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<Image> OpenWithVipsInOrder(const QString& path) {
  Initialize();
  try {
    auto upright = OpenUpright(path);
    if (!upright) return std::nullopt;
    // libvips' loader decodes a JPEG on one thread; ours takes two bands at once.
    if (IsJpeg(*upright)) {
      if (auto streamed = StreamJpeg(path, *upright, JpegThreads(DecodeCores::All))) upright = std::move(streamed);
    }
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
