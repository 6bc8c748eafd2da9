// Arbitrary bytes as a helper's PAM output, cut into chunks where the first byte says:
// the receiver never crashes and only gives a picture of the size its header states.
#include "imaging/Pam.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
  const qsizetype chunk = data[0] + 1;
  imaging::PamReceiver receiver(std::int64_t(1) << 20, data[0] % 2 == 0);
  for (qsizetype at = 0; at < bytes.size(); at += chunk) {
    if (!receiver.Take(bytes.mid(at, chunk))) return 0;
  }
  const auto picture = receiver.Finish();
  if (!picture) return 0;
  const auto header = imaging::ParsePamHeader(bytes, std::int64_t(1) << 20);
  if (!header || header->Width != picture->Width() || header->Height != picture->Height()) std::abort();
  return 0;
}
