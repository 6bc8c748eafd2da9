#include "imaging/JpegDecode.h"
#include "base/FileNames.h"

#include "imaging/ImageInternal.h"

#include <QFile>

#include <turbojpeg.h>

#include <algorithm>
#include <cstddef>

namespace imaging {

namespace {

// A JPEG larger than this is left to libvips, which reads it a piece at a time.
constexpr qint64 kLargestFileInMemory = qint64(256) << 20;

struct Decompressor {
  tjhandle handle = tjInitDecompress();
  ~Decompressor() {
    if (handle) tjDestroy(handle);
  }
};

}  // namespace

std::optional<vips::VImage> DecodeJpeg(const QString& path, const vips::VImage& header, int shrink) {
  QFile file;
  if (!base::OpenForReading(file, path) || file.size() > kLargestFileInMemory) return std::nullopt;
  const QByteArray jpeg = base::ReadWhole(file, kLargestFileInMemory);
  const auto* bytes = reinterpret_cast<const unsigned char*>(jpeg.constData());
  const Decompressor decompressor;
  int width = 0, height = 0, subsampling = 0, colourSpace = 0;
  if (!decompressor.handle ||
      tjDecompressHeader3(decompressor.handle, bytes, jpeg.size(), &width, &height, &subsampling, &colourSpace) != 0 ||
      width != header.width() || height != header.height()) {
    return std::nullopt;
  }
  if (colourSpace != TJCS_YCbCr && colourSpace != TJCS_RGB && colourSpace != TJCS_GRAY) return std::nullopt;  // CMYK
  const bool grey = colourSpace == TJCS_GRAY;
  const int bands = grey ? 1 : 3;
  const tjscalingfactor factor{1, shrink};
  const int scaledWidth = TJSCALED(width, factor), scaledHeight = TJSCALED(height, factor);
  // Memory of our own, which the kernel may back with huge pages, as every large picture's.
  const std::size_t size = std::size_t(scaledWidth) * scaledHeight * bands;
  void* pixels = AllocatePixels(size);
  if (!pixels) return std::nullopt;
  vips::VImage decoded =
      vips::VImage::new_from_memory_steal(pixels, size, scaledWidth, scaledHeight, bands, VIPS_FORMAT_UCHAR);
  // Any damage, even one libjpeg only warns of, goes the usual way, where it is told as always.
  if (tjDecompress2(decompressor.handle, bytes, jpeg.size(), static_cast<unsigned char*>(pixels), scaledWidth, 0,
                    scaledHeight, grey ? TJPF_GRAY : TJPF_RGB, 0) != 0) {
    return std::nullopt;
  }
  // libjpeg rounds a scaled side up and libvips down.
  const int keptWidth = std::max(1, width / shrink), keptHeight = std::max(1, height / shrink);
  if (keptWidth != scaledWidth || keptHeight != scaledHeight) {
    decoded = InMemory(decoded.extract_area(0, 0, keptWidth, keptHeight));
  }
  CopyMetadata(header, decoded);
  return decoded;
}

}  // namespace imaging
