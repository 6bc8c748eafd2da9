#include "base/FileNames.h"
#include "imaging/Metadata.h"

#include <exiv2/exiv2.hpp>

#include <memory>

namespace imaging {

std::optional<QDateTime> ReadDateTaken(const QString& path) {
  try {
    std::unique_ptr<Exiv2::Image> file(Exiv2::ImageFactory::open(base::EncodeFileName(path).toStdString()).release());
    if (!file) return std::nullopt;
    file->readMetadata();
    const Exiv2::ExifData& exif = file->exifData();
    for (const char* key : {"Exif.Photo.DateTimeOriginal", "Exif.Image.DateTime"}) {
      const auto found = exif.findKey(Exiv2::ExifKey(key));
      if (found == exif.end()) continue;
      const QDateTime when = QDateTime::fromString(QString::fromStdString(found->toString()), QStringLiteral("yyyy:MM:dd HH:mm:ss"));
      if (when.isValid()) return when;
    }
  } catch (const Exiv2::AnyError&) {
  }
  return std::nullopt;
}

}  // namespace imaging
