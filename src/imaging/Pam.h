#pragma once
// Reads the PAM (P7) image that the decoding helpers write: a text header (WIDTH, HEIGHT,
// DEPTH, MAXVAL, TUPLTYPE, ENDHDR) followed by raw samples.

#include "imaging/Image.h"

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <optional>

namespace imaging {

struct PamImage {
  int Width = 0;
  int Height = 0;
  int Depth = 0;          // samples per pixel: 1 grey, 2 grey+alpha, 3 RGB, 4 RGBA
  int BytesPerSample = 1;  // 1 for MAXVAL up to 255, 2 (big-endian) up to 65535
  qsizetype DataOffset = 0;
};

// The header, once all of it is in `bytes`; nullopt for anything malformed or larger than
// `maxPixels`, and while it is still arriving (then `incomplete` is set).
std::optional<PamImage> ParsePamHeader(const QByteArray& bytes, std::int64_t maxPixels, bool* incomplete = nullptr);

class RowAssembler;

// Takes a PAM as it arrives, chunk by chunk, and assembles the picture a band of rows at a
// time, so the stream itself is never held whole.
class PamReceiver {
 public:
  PamReceiver(std::int64_t maxPixels, bool onWhite);
  ~PamReceiver();

  // False once the stream is malformed, too large or longer than its header says: stop.
  bool Take(const QByteArray& chunk);
  // The picture, when every sample arrived.
  std::optional<Image> Finish();

 private:
  bool Start();
  bool AddBand(int rows);

  std::int64_t maxPixels_;
  bool onWhite_;
  QByteArray pending_;  // the header so far, then samples short of a band
  std::optional<PamImage> header_;
  std::unique_ptr<RowAssembler> rows_;
  int rowsTaken_ = 0;
};

}  // namespace imaging
