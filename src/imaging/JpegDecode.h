#pragma once
// A JPEG decoded by libjpeg straight from the file in memory, for the imaging files only.

#include <QByteArray>
#include <QString>

#include <vips/vips8>

#include <optional>

namespace imaging {

// A JPEG larger than this is left to libvips, which reads it a piece at a time.
inline constexpr qint64 kLargestJpegInMemory = qint64(256) << 20;

// The whole file, when it is no larger than that.
std::optional<QByteArray> ReadJpegFile(const QString& path);

// The JPEG's pixels with its DCT scaled by 1/shrink (1, 2, 4 or 8), exactly as libvips' loader
// with that shrink gives them (the same IDCT and upsampling, the sides rounded down) and with
// `header`'s metadata, in memory. libvips hands libjpeg 4 KB at a time, and refilling its bit
// buffer that often costs a fifth of a scaled decode. With `threads` 2 a baseline JPEG is
// decoded in two bands at once (JpegBands.h). nullopt for CMYK and for any damage, which the
// usual reading then meets.
std::optional<vips::VImage> DecodeJpeg(const QString& path, const vips::VImage& header, int shrink, int threads = 1);

// The same pixels and metadata unshrunk, as a pipeline whose rows come as they are decoded,
// with `threads` 2 in two bands at once (JpegStream.cpp): for reading once from top to bottom.
std::optional<vips::VImage> StreamJpeg(const QString& path, const vips::VImage& header, int threads);

}  // namespace imaging
