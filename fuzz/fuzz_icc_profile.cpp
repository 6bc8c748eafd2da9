// Arbitrary bytes as the ICC profile of a small JPEG: opening it and making its sRGB and
// screen pixels never crashes, and a profile that is kept is one the pixels can go through.
#include "imaging/Loader.h"
#include "imaging/Saver.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

const QTemporaryDir& Folder() {
  static const QTemporaryDir folder;
  return folder;
}

// A plain 8 x 8 JPEG written once by our own saver.
const QByteArray& PlainJpeg() {
  static const QByteArray bytes = [] {
    QImage red(8, 8, QImage::Format_RGB888);
    red.fill(Qt::red);
    const QString path = Folder().filePath(QStringLiteral("plain.jpg"));
    if (!imaging::SaveImage(imaging::Image::FromQImage(red), path)) std::abort();
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }();
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 60000) return 0;
  QByteArray segment("\xFF\xE2", 2);
  const std::size_t length = size + 16;  // the length field, the name, the chunk numbers and the profile
  segment.append(char(length >> 8)).append(char(length & 0xFF));
  segment.append("ICC_PROFILE\0\x01\x01", 14).append(reinterpret_cast<const char*>(data), qsizetype(size));
  QByteArray jpeg = PlainJpeg();
  jpeg.insert(2, segment);  // straight after the start-of-image marker
  const QString path = Folder().filePath(QStringLiteral("tagged.jpg"));
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(jpeg) != jpeg.size()) std::abort();
  file.close();
  const auto image = imaging::LoadFile(path);
  if (!image) return 0;
  if (image->ToQImage().size() != QSize(8, 8) || image->InSrgb().Width() != 8) std::abort();
  return 0;
}
