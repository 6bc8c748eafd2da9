#include "imaging/Palette.h"

#include "base/FileNames.h"

#include <QFile>
#include <QHash>

namespace imaging {

namespace {

constexpr qsizetype kHeaderBytes = 128;

int Byte(const QByteArray& head, qsizetype at) { return static_cast<unsigned char>(head[at]); }
int Word(const QByteArray& head, qsizetype at) { return Byte(head, at) | (Byte(head, at + 1) << 8); }

// 2 and 3 bits are stored in a 4-bit palette; anything up to 8 in an 8-bit one.
int NormalBits(int bits) {
  if (bits <= 0 || bits > 8) return 0;
  return bits == 1 ? 1 : bits <= 4 ? 4 : 8;
}

int BmpBits(const QByteArray& head) {
  const int infoSize = Word(head, 14);
  return NormalBits(infoSize == 12 ? Word(head, 24) : Word(head, 28));
}

int GifBits(const QByteArray& head) {
  const int flags = Byte(head, 10);
  return NormalBits((flags & 0x80) ? (flags & 7) + 1 : 8);
}

}  // namespace

int PaletteBitsOfHeader(const QByteArray& head) {
  if (head.size() < 32) return 0;
  if (head.startsWith("BM")) return BmpBits(head);
  if (head.startsWith("GIF8")) return GifBits(head);
  if (head.startsWith("\x89PNG\r\n\x1a\n") && Byte(head, 25) == 3) return NormalBits(Byte(head, 24));
  if (Byte(head, 0) == 0x0A && head.size() > 65 && Byte(head, 2) <= 1) return NormalBits(Byte(head, 3) * Byte(head, 65));
  return 0;
}

int PaletteBitsOfFile(const QString& path) {
  QFile file;
  return base::OpenForReading(file, path) ? PaletteBitsOfHeader(file.read(kHeaderBytes)) : 0;
}

QImage ToExactPalette(const Image& image, int bits) {
  if (bits < 1 || bits > 8 || image.HasAlpha()) return {};
  const QImage rgb = image.ToQImage().convertToFormat(QImage::Format_RGB32);
  const int most = 1 << bits;
  QHash<QRgb, uchar> indexOf;
  QImage indexed(rgb.size(), bits == 1 ? QImage::Format_Mono : QImage::Format_Indexed8);
  indexed.fill(0);
  QList<QRgb> colours;
  for (int y = 0; y < rgb.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
    uchar* out = indexed.scanLine(y);
    for (int x = 0; x < rgb.width(); ++x) {
      auto found = indexOf.constFind(row[x]);
      if (found == indexOf.constEnd()) {
        if (colours.size() == most) return {};
        found = indexOf.insert(row[x], static_cast<uchar>(colours.size()));
        colours << row[x];
      }
      if (bits > 1) {
        out[x] = found.value();
      } else if (found.value()) {
        out[x >> 3] |= static_cast<uchar>(0x80 >> (x & 7));  // Format_Mono: the first pixel in the high bit
      }
    }
  }
  if (bits == 1 && colours.size() < 2) colours << (colours.value(0) ^ 0x00FFFFFF);
  indexed.setColorTable(colours);
  return indexed;
}

}  // namespace imaging
