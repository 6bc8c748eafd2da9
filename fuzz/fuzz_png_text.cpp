// Arbitrary bytes as a cached thumbnail: the text-chunk reader never crashes, never reads
// past the bytes, and every key it returns was really there.
#include "browse/ThumbnailCache.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  for (const auto& [key, value] : browse::PngTextKeys(bytes)) {
    if (key.isEmpty() || !bytes.contains(key + '\0' + value)) std::abort();
  }
  return 0;
}
