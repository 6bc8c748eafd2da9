#pragma once
// What a PNG file states about its colours before its pixels: an sRGB chunk, an embedded
// profile (iCCP), the gamma (gAMA) and the primaries and white point (cHRM). Read from the
// file's head only; whatever follows the first IDAT is not looked at.

#include <QByteArrayView>

#include <optional>

namespace imaging {

struct Chromaticities {
  double WhiteX, WhiteY, RedX, RedY, GreenX, GreenY, BlueX, BlueY;
};

struct PngColourChunks {
  bool Srgb = false;
  bool Iccp = false;
  std::optional<double> Gamma;  // the encoding gamma, e.g. 0.45455; above 0 and at most 10
  std::optional<Chromaticities> Primaries;  // each coordinate above 0 and below 1
};

// Nothing is stated for bytes that are not a PNG or whose chunks run short.
PngColourChunks ReadPngColourChunks(QByteArrayView head);

}  // namespace imaging
