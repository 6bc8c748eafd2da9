#include "imaging/Pam.h"

#include <QList>

namespace imaging {

namespace {

std::optional<std::int64_t> PositiveNumber(const QByteArray& text) {
  bool ok = false;
  const qlonglong value = text.toLongLong(&ok);
  if (!ok || value <= 0 || value > 0x7FFFFFFF) return std::nullopt;
  return value;
}

}  // namespace

std::optional<PamImage> ParsePam(const QByteArray& bytes, std::int64_t maxPixels) {
  if (!bytes.startsWith("P7\n")) return std::nullopt;
  const qsizetype end = bytes.indexOf("\nENDHDR\n");
  if (end < 0) return std::nullopt;
  std::int64_t width = 0, height = 0, depth = 0, maxval = 0;
  for (const QByteArray& line : bytes.mid(3, end - 3).split('\n')) {
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() != 2) continue;  // comments, TUPLTYPE with several words, blanks
    const auto value = PositiveNumber(words[1]);
    if (words[0] == "WIDTH" && value) width = *value;
    if (words[0] == "HEIGHT" && value) height = *value;
    if (words[0] == "DEPTH" && value) depth = *value;
    if (words[0] == "MAXVAL" && value) maxval = *value;
  }
  if (width == 0 || height == 0 || depth < 1 || depth > 4 || maxval == 0 || maxval > 65535) return std::nullopt;
  if (width * height > maxPixels) return std::nullopt;
  PamImage pam;
  pam.Width = static_cast<int>(width);
  pam.Height = static_cast<int>(height);
  pam.Depth = static_cast<int>(depth);
  pam.BytesPerSample = maxval > 255 ? 2 : 1;
  pam.DataOffset = end + 8;
  const std::int64_t needed = width * height * depth * pam.BytesPerSample;
  if (bytes.size() - pam.DataOffset < needed) return std::nullopt;
  return pam;
}

}  // namespace imaging
