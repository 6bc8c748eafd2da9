#pragma once
// A JPEG decoded by TurboJPEG, for the imaging files only.

#include <QString>

#include <vips/vips8>

#include <optional>

namespace imaging {

// The JPEG's pixels with its DCT scaled by 1/shrink (1, 2, 4 or 8), exactly as libvips' loader
// with that shrink gives them (the same IDCT and upsampling, the sides rounded down) and with
// `header`'s metadata, in memory. Decoded on the calling thread from the whole file in memory:
// libvips hands libjpeg 4 KB at a time, and refilling its bit buffer that often costs a fifth
// of a scaled decode. nullopt for CMYK and for any damage, which the usual reading then meets.
std::optional<vips::VImage> DecodeJpeg(const QString& path, const vips::VImage& header, int shrink);

}  // namespace imaging
