// Arbitrary bytes as a DCX file's head: the page count never reads past the bytes, and it
// is at least one and at most the 1,023 offsets the header holds.
#include "imaging/Sniff.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const int pages = imaging::DcxPageCount(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
  if (pages < 1 || pages > 1023) std::abort();
  return 0;
}
