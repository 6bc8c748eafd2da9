#include "imaging/JpegDecode.h"
#include "base/FileNames.h"

#include "imaging/ImageInternal.h"
#include "imaging/JpegBands.h"

#include <QFile>

#include <algorithm>
#include <thread>

namespace imaging {

namespace {

bool DecodeInto(const QByteArray& jpeg, int shrink, const JpegShape& shape, int threads, unsigned char* pixels) {
  const std::size_t stride = shape.Stride();
  const int split = threads > 1 ? LowerBandStart(shape) : 0;
  if (split == 0) return JpegBandReader(jpeg, shrink, shape, 0).Read(shape.Height, pixels, stride);
  bool lowerDone = false;
  std::thread lower([&] {
    lowerDone = JpegBandReader(jpeg, shrink, shape, split).Read(shape.Height, pixels + std::size_t(split) * stride, stride);
  });
  const bool upperDone = JpegBandReader(jpeg, shrink, shape, 0).Read(split, pixels, stride);
  lower.join();
  return upperDone && lowerDone;
}

}  // namespace

std::optional<QByteArray> ReadJpegFile(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path) || file.size() > kLargestJpegInMemory) return std::nullopt;
  return base::ReadWhole(file, kLargestJpegInMemory);
}

std::optional<vips::VImage> DecodeJpeg(const QString& path, const vips::VImage& header, int shrink, int threads) {
  const auto jpeg = ReadJpegFile(path);
  if (!jpeg) return std::nullopt;
  const auto shape = ReadJpegShape(*jpeg, shrink);
  if (!shape || shape->StoredWidth != header.width() || shape->StoredHeight != header.height()) return std::nullopt;
  // Memory of our own, which the kernel may back with huge pages, as every large picture's.
  const std::size_t size = shape->Stride() * std::size_t(shape->Height);
  void* pixels = AllocatePixels(size);
  if (!pixels) return std::nullopt;
  vips::VImage decoded =
      vips::VImage::new_from_memory_steal(pixels, size, shape->Width, shape->Height, shape->Bands, VIPS_FORMAT_UCHAR);
  // Any damage, even one libjpeg only warns of, goes the usual way, where it is told as always.
  if (!DecodeInto(*jpeg, shrink, *shape, threads, static_cast<unsigned char*>(pixels))) return std::nullopt;
  // libjpeg rounds a scaled side up and libvips down.
  const int keptWidth = std::max(1, shape->StoredWidth / shrink), keptHeight = std::max(1, shape->StoredHeight / shrink);
  if (keptWidth != shape->Width || keptHeight != shape->Height) {
    decoded = InMemory(decoded.extract_area(0, 0, keptWidth, keptHeight));
  }
  CopyMetadata(header, decoded);
  return decoded;
}

}  // namespace imaging
