// Arbitrary bytes as a slide show list file: the reader never crashes or hangs, reads no
// more rows than the file has lines, and what it read is written and read back the same.
#include "slideshow/SlideShowList.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const QLocale locale(QLocale::C);
  const auto list = slideshow::ReadSlideShowText(bytes, locale);
  if (!list) return 0;
  if (qsizetype(list->Rows.size()) > bytes.count('\n') + bytes.count('\r') + 1) std::abort();
  const auto written = slideshow::WriteSlideShowText(*list, locale);  // what was read is always writable
  if (!written) std::abort();
  const auto back = slideshow::ReadSlideShowText(*written, locale);
  if (!back || back->Rows != list->Rows || back->Folder != list->Folder) std::abort();
  return 0;
}
