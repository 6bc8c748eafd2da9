// Arbitrary bytes as a GIF: the scan never reads past them, counts at most the frames
// allowed, and gives one delay per frame.
#include "imaging/GifScan.h"

#include <QBuffer>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  const auto scan = imaging::ScanGif(buffer);
  if (scan && (scan->Frames() > imaging::kMaxGifFrames || scan->LoopCount > 65535)) std::abort();
  buffer.seek(0);
  const auto two = imaging::ScanGif(buffer, 2);
  if (scan && (!two || two->Frames() != std::min(scan->Frames(), 2))) std::abort();
  return 0;
}
