#include "imaging/WpgEncoder.h"

#include <QBuffer>
#include <QImageReader>

#include "imaging/ImageInternal.h"

#include <QImage>
#include <QtEndian>

namespace imaging {

namespace {

constexpr int kMaxRun = 127;

void PutWord(QByteArray& out, int value) {
  out.append(static_cast<char>(value & 0xFF));
  out.append(static_cast<char>((value >> 8) & 0xFF));
}

// A record: its type, its length in WPG's variable-size form, its body.
void PutRecord(QByteArray& out, int type, const QByteArray& body) {
  out.append(static_cast<char>(type));
  const qint64 length = body.size();
  if (length < 0xFF) {
    out.append(static_cast<char>(length));
  } else if (length < 0x8000) {
    out.append('\xFF');
    PutWord(out, static_cast<int>(length));
  } else {
    out.append('\xFF');
    PutWord(out, static_cast<int>(0x8000 | (length >> 16)));
    PutWord(out, static_cast<int>(length & 0xFFFF));
  }
  out.append(body);
}

// The image as 8-bit palette indices, quantised by libimagequant (libvips' palette PNG).
std::optional<QImage> Quantised(const Image& image) {
  try {
    void* data = nullptr;
    size_t size = 0;
    image.OnWhite().InSrgb().Internal().image.write_to_buffer(
        ".png", &data, &size, vips::VImage::option()->set("palette", true)->set("bitdepth", 8)->set("dither", 1.0));
    QByteArray png = QByteArray::fromRawData(static_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "PNG");
    reader.setAllocationLimit(0);  // the size was checked against the format's cap before
    QImage indexed = reader.read();
    g_free(data);
    if (indexed.isNull()) return std::nullopt;
    if (indexed.format() != QImage::Format_Indexed8) indexed = indexed.convertToFormat(QImage::Format_Indexed8);
    return indexed;
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

}  // namespace

QByteArray WpgRunLength(const QByteArray& row) {
  QByteArray out;
  qsizetype i = 0;
  const qsizetype n = row.size();
  while (i < n) {
    qsizetype run = 1;
    while (i + run < n && run < kMaxRun && row[i + run] == row[i]) ++run;
    if (run >= 3) {
      out.append(static_cast<char>(0x80 | run));
      out.append(row[i]);
      i += run;
      continue;
    }
    qsizetype literal = 0;  // up to the next run of three or the limit
    while (i + literal < n && literal < kMaxRun &&
           !(i + literal + 2 < n && row[i + literal] == row[i + literal + 1] && row[i + literal] == row[i + literal + 2])) {
      ++literal;
    }
    out.append(static_cast<char>(literal));
    out.append(row.mid(i, literal));
    i += literal;
  }
  return out;
}

std::optional<QByteArray> EncodeWpg(const Image& image) {
  if (image.Width() > 0xFFFF || image.Height() > 0xFFFF) return std::nullopt;
  const auto indexed = Quantised(image);
  if (!indexed) return std::nullopt;
  QByteArray file("\xFFWPC\x10\0\0\0\x01\x16\x01\0\0\0\0\0", 16);

  QByteArray start("\x01\x00", 2);  // version 1, no flags, then the size in 1/1200 inch at 96 dpi
  PutWord(start, std::min(0xFFFF, image.Width() * 25 / 2));
  PutWord(start, std::min(0xFFFF, image.Height() * 25 / 2));
  PutRecord(file, 0x0F, start);

  QByteArray colormap;
  const QList<QRgb> colours = indexed->colorTable();
  PutWord(colormap, 0);
  PutWord(colormap, 256);
  for (int i = 0; i < 256; ++i) {
    const QRgb c = i < colours.size() ? colours[i] : qRgb(0, 0, 0);
    colormap.append(static_cast<char>(qRed(c))).append(static_cast<char>(qGreen(c))).append(static_cast<char>(qBlue(c)));
  }
  PutRecord(file, 0x0E, colormap);

  QByteArray bitmap;
  for (const int value : {image.Width(), image.Height(), 8, 96, 96}) PutWord(bitmap, value);
  for (int y = 0; y < indexed->height(); ++y) {
    bitmap.append(WpgRunLength(QByteArray(reinterpret_cast<const char*>(indexed->constScanLine(y)), indexed->width())));
  }
  PutRecord(file, 0x0B, bitmap);
  PutRecord(file, 0x10, {});
  return file;
}

}  // namespace imaging
