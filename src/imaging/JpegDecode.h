#pragma once
// A JPEG decoded by libjpeg straight from the file in memory, for the imaging files only.

#include <QString>

#include <vips/vips8>

#include <optional>

namespace imaging {

// The JPEG's pixels with its DCT scaled by 1/shrink (1, 2, 4 or 8), exactly as libvips' loader
// with that shrink gives them (the same IDCT and upsampling, the sides rounded down) and with
// `header`'s metadata, in memory. libvips hands libjpeg 4 KB at a time, and refilling its bit
// buffer that often costs a fifth of a scaled decode. With `threads` 2 a baseline JPEG is
// decoded in two bands at once, the lower one skipping to its start. nullopt for CMYK and for
// any damage, which the usual reading then meets.
std::optional<vips::VImage> DecodeJpeg(const QString& path, const vips::VImage& header, int shrink, int threads = 1);

}  // namespace imaging
