#include "imaging/TiffExif.h"

#include <exiv2/exiv2.hpp>

namespace imaging {

QByteArray WithExif(const QByteArray& tiff, const QByteArray& exif) {
  if (!exif.startsWith(QByteArrayView("Exif\0\0", 6))) return tiff;
  try {
    Exiv2::ExifData tags;
    Exiv2::ExifParser::decode(tags, reinterpret_cast<const Exiv2::byte*>(exif.constData()) + 6, uint32_t(exif.size() - 6));
    Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(tiff.constData()), long(tiff.size()));
    image->readMetadata();
    Exiv2::ExifData& written = image->exifData();
    for (const Exiv2::Exifdatum& tag : tags) {
      // The TIFF's own layout (size, samples, strips) is exiv2's to keep; a thumbnail has no place here.
      if (tag.groupName() == "Thumbnail" || tag.key() == "Exif.Image.Orientation") continue;
      if (written.findKey(Exiv2::ExifKey(tag.key())) == written.end()) written.add(tag);
    }
    written["Exif.Image.Orientation"] = uint16_t(1);
    image->writeMetadata();
    Exiv2::BasicIo& io = image->io();
    QByteArray bytes(qsizetype(io.size()), '\0');
    if (io.seek(0, Exiv2::BasicIo::beg) != 0 || io.read(reinterpret_cast<Exiv2::byte*>(bytes.data()), long(bytes.size())) != long(bytes.size())) {
      return tiff;
    }
    return bytes;
  } catch (const Exiv2::AnyError&) {
    return tiff;
  }
}

}  // namespace imaging
