#pragma once
// Reads the PAM (P7) image that the decoding helper writes: a text header
// (WIDTH, HEIGHT, DEPTH, MAXVAL, TUPLTYPE, ENDHDR) followed by raw samples.

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace imaging {

struct PamImage {
  int Width = 0;
  int Height = 0;
  int Depth = 0;          // samples per pixel: 1 grey, 2 grey+alpha, 3 RGB, 4 RGBA
  int BytesPerSample = 1;  // 1 for MAXVAL up to 255, 2 (big-endian) up to 65535
  qsizetype DataOffset = 0;
};

// The header of a complete PAM whose sample data is all there; nullopt for anything
// malformed, truncated, or larger than `maxPixels`.
std::optional<PamImage> ParsePam(const QByteArray& bytes, std::int64_t maxPixels);

}  // namespace imaging
