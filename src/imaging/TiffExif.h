#pragma once
// libvips writes a TIFF's profile and XMP but not the EXIF the picture came with; exiv2 adds
// it to the encoded file (camera, exposure, date...), leaving the TIFF's own layout as it is.

#include <QByteArray>

namespace imaging {

// `tiff` with the tags of `exif` (libvips' "exif-data": "Exif\0\0" and a TIFF header);
// `tiff` unchanged when either cannot be read. The orientation is set upright.
QByteArray WithExif(const QByteArray& tiff, const QByteArray& exif);

}  // namespace imaging
