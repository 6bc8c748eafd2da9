// Arbitrary bytes as an APNG: the chunks are sorted without reading past them, every frame
// shown is the canvas's size, and there are never more frames than the timing counts.
#include "imaging/Apng.h"


#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
  (void)imaging::LooksLikeApng(bytes);
  const auto timing = imaging::ReadApngTiming(bytes);
  imaging::ApngFrames frames(bytes);
  QSize canvas;
  size_t shown = 0;
  while (const auto frame = frames.Next()) {
    if (canvas.isValid() && frame->size() != canvas) std::abort();
    canvas = frame->size();
    ++shown;
  }
  if (shown > 1 && (!timing || shown > timing->DelaysMs.size())) std::abort();
  return 0;
}
