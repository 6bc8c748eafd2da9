// Arbitrary bytes as a PNG file's head: the colour-chunk reader never crashes, never reads
// past the bytes, and what it states is a usable gamma and real chromaticities.
#include "imaging/PngChunks.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const imaging::PngColourChunks stated =
      imaging::ReadPngColourChunks(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
  if (stated.Gamma && !(*stated.Gamma > 0 && *stated.Gamma <= 10)) std::abort();
  if (const auto& p = stated.Primaries) {
    for (const double value : {p->WhiteX, p->WhiteY, p->RedX, p->RedY, p->GreenX, p->GreenY, p->BlueX, p->BlueY}) {
      if (!(value > 0 && value < 1)) std::abort();
    }
  }
  return 0;
}
