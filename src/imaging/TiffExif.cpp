#include "imaging/TiffExif.h"

#include "imaging/ExivInMemory.h"

namespace imaging {

QByteArray WithExif(const QByteArray& tiff, const QByteArray& exif) {
  if (!exif.startsWith(QByteArrayView("Exif\0\0", 6))) return tiff;
  try {
    Exiv2::ExifData tags;
    Exiv2::ExifParser::decode(tags, reinterpret_cast<const Exiv2::byte*>(exif.constData()) + 6, uint32_t(exif.size() - 6));
    const auto image = OpenInMemory(tiff);
    Exiv2::ExifData& written = image->exifData();
    for (const Exiv2::Exifdatum& tag : tags) {
      // The TIFF's own layout (size, samples, strips) is exiv2's to keep; a thumbnail has no place here.
      if (tag.groupName() == "Thumbnail" || tag.key() == "Exif.Image.Orientation") continue;
      if (written.findKey(Exiv2::ExifKey(tag.key())) == written.end()) written.add(tag);
    }
    written["Exif.Image.Orientation"] = uint16_t(1);
    return WrittenInMemory(*image, tiff);
  } catch (const Exiv2::AnyError&) {
    return tiff;
  }
}

}  // namespace imaging
