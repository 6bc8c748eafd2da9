// Arbitrary bytes as the helper's PAM output: the header parser never crashes and only
// accepts an image whose samples are all there.
#include "imaging/Pam.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const auto pam = imaging::ParsePam(bytes, std::int64_t(1) << 20);
  if (!pam) return 0;
  const std::int64_t needed = std::int64_t(pam->Width) * pam->Height * pam->Depth * pam->BytesPerSample;
  if (pam->Width <= 0 || pam->Height <= 0 || pam->Depth < 1 || pam->Depth > 4) std::abort();
  if (std::int64_t(pam->Width) * pam->Height > (std::int64_t(1) << 20)) std::abort();
  if (pam->DataOffset + needed > bytes.size()) std::abort();
  return 0;
}
