// Arbitrary bytes as a file name: decoding and encoding give back exactly the bytes, valid
// UTF-8 reads as itself, and the readable name never holds an escape.
#include "base/FileNames.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const QString name = base::DecodeFileName(bytes);
  if (base::EncodeFileName(name) != bytes) std::abort();
  if (!base::HasRawBytes(name) && name != QString::fromUtf8(bytes)) std::abort();
  if (base::HasRawBytes(base::ReadableFileName(name))) std::abort();
  return 0;
}
