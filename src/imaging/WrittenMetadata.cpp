#include "imaging/WrittenMetadata.h"

#include "imaging/ExivInMemory.h"

#include <QtEndian>

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

namespace {

// The tags of libvips' "exif-data" as the TIFF structure an Exif box holds, upright; empty
// when they cannot be read.
QByteArray UprightExif(const QByteArray& exif) {
  if (!exif.startsWith(QByteArrayView("Exif\0\0", 6))) return {};
  try {
    Exiv2::ExifData tags;
    const Exiv2::ByteOrder order = Exiv2::ExifParser::decode(tags, reinterpret_cast<const Exiv2::byte*>(exif.constData()) + 6, uint32_t(exif.size() - 6));
    if (tags.findKey(Exiv2::ExifKey("Exif.Image.Orientation")) != tags.end()) tags["Exif.Image.Orientation"] = uint16_t(1);
    Exiv2::Blob encoded;
    Exiv2::ExifParser::encode(encoded, order == Exiv2::invalidByteOrder ? Exiv2::littleEndian : order, tags);
    return QByteArray(reinterpret_cast<const char*>(encoded.data()), qsizetype(encoded.size()));
  } catch (const Exiv2::AnyError&) {
    return {};
  }
}

QByteArray Box(const char* type, const QByteArray& payload) {
  QByteArray box(8, '\0');
  qToBigEndian(quint32(8 + payload.size()), box.data());
  box.replace(4, 4, type, 4);
  return box + payload;
}

}  // namespace

QByteArray JxlWithMetadata(const QByteArray& codestream, const QByteArray& exif, const QByteArray& xmp) {
  const QByteArray tiff = UprightExif(exif);
  if (!codestream.startsWith("\xFF\x0A") || (tiff.isEmpty() && xmp.isEmpty())) return codestream;
  QByteArray file("\0\0\0\x0CJXL \r\n\x87\n", 12);
  file += Box("ftyp", QByteArray("jxl \0\0\0\0jxl ", 12));
  if (!tiff.isEmpty()) file += Box("Exif", QByteArray(4, '\0') + tiff);  // the TIFF header follows at once
  if (!xmp.isEmpty()) file += Box("xml ", xmp);
  return file + Box("jxlc", codestream);
}

}  // namespace imaging
