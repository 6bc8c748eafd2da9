#include "imaging/PngChunks.h"

#include <QByteArray>

namespace imaging {

namespace {

quint32 BigEndian(const char* bytes) {
  const auto* b = reinterpret_cast<const unsigned char*>(bytes);
  return quint32(b[0]) << 24 | quint32(b[1]) << 16 | quint32(b[2]) << 8 | quint32(b[3]);
}

// A cHRM or gAMA value: a whole number in 100000ths.
double Fraction(const char* bytes) { return BigEndian(bytes) / 100000.0; }

std::optional<Chromaticities> ReadPrimaries(QByteArrayView body) {
  if (body.size() != 32) return std::nullopt;
  double values[8];
  for (int i = 0; i < 8; ++i) {
    values[i] = Fraction(body.data() + 4 * i);
    if (values[i] <= 0 || values[i] >= 1) return std::nullopt;  // no real chromaticity
  }
  return Chromaticities{values[0], values[1], values[2], values[3], values[4], values[5], values[6], values[7]};
}

}  // namespace

PngColourChunks ReadPngColourChunks(QByteArrayView head) {
  PngColourChunks stated;
  if (!head.startsWith(QByteArrayView("\x89PNG\r\n\x1a\n"))) return stated;
  qsizetype at = 8;
  while (head.size() - at >= 12) {
    const quint32 length = BigEndian(head.data() + at);
    const QByteArrayView type = head.sliced(at + 4, 4);
    if (type == "IDAT" || length > quint32(head.size() - at - 12)) break;
    const QByteArrayView body = head.sliced(at + 8, qsizetype(length));
    if (type == "sRGB") stated.Srgb = true;
    if (type == "iCCP") stated.Iccp = true;
    if (type == "gAMA" && length == 4 && BigEndian(body.data()) > 0 && Fraction(body.data()) <= 10) {
      stated.Gamma = Fraction(body.data());
    }
    if (type == "cHRM") stated.Primaries = ReadPrimaries(body);
    at += 12 + qsizetype(length);
  }
  return stated;
}

}  // namespace imaging
