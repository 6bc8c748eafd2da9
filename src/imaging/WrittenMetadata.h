#pragma once
// Metadata libvips' writers leave out, added to the encoded file: a TIFF's EXIF (exiv2 adds
// it, leaving the TIFF's own layout as it is), and a JPEG XL's EXIF and XMP (libvips writes
// a bare codestream, which holds only the profile; the container's boxes hold the rest).

#include <QByteArray>

namespace imaging {

// `tiff` with the tags of `exif` (libvips' "exif-data": "Exif\0\0" and a TIFF header);
// `tiff` unchanged when either cannot be read. The orientation is set upright.
QByteArray WithExif(const QByteArray& tiff, const QByteArray& exif);

// A JPEG XL codestream in a container with `exif` (as above, its orientation set upright)
// and `xmp` boxes; the codestream itself when there is neither.
QByteArray JxlWithMetadata(const QByteArray& codestream, const QByteArray& exif, const QByteArray& xmp);

}  // namespace imaging
