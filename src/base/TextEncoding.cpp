#include "base/TextEncoding.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace base {

namespace {

// Unicode code points of the Windows-1252 bytes 0x80..0x9F.
constexpr std::array<char16_t, 32> kHighControlRange = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

QString DecodeWindows1252(const QByteArray& bytes) {
  QString text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    if (code >= 0x80 && code <= 0x9F) {
      text += QChar(kHighControlRange[code - 0x80]);
    } else {
      text += QChar(static_cast<char16_t>(code));
    }
  }
  return text;
}

std::optional<QByteArray> EncodeWindows1252(const QString& text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (const QChar c : text) {
    const char16_t code = c.unicode();
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
      bytes += char(code);
      continue;
    }
    const auto* found = std::find(kHighControlRange.begin(), kHighControlRange.end(), code);
    if (found == kHighControlRange.end()) return std::nullopt;
    bytes += char(0x80 + (found - kHighControlRange.begin()));
  }
  return bytes;
}

QString DecodeUtf8OrWindows1252(const QByteArray& bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString text = utf8(bytes);
  if (!utf8.hasError()) return text;
  return DecodeWindows1252(bytes);
}

QStringList SplitLines(const QString& text) {
  QStringList lines;
  qsizetype start = 0;
  const qsizetype n = text.size();
  for (qsizetype i = 0; i < n; ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') continue;
    lines << text.mid(start, i - start);
    if (text[i] == u'\r' && i + 1 < n && text[i + 1] == u'\n') ++i;
    start = i + 1;
  }
  if (start < n) lines << text.mid(start);
  return lines;
}

}  // namespace base
