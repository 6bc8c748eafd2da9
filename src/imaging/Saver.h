#pragma once
// Saving in the Save As formats, by the target's extension. The user's
// file is never overwritten in place: the encoded bytes go to a temporary file beside the
// target, which is then renamed over it; a failure leaves the target as it was.

#include "imaging/Image.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace imaging {

// TIFF's compressions, in the order Save As offers them.
enum class TiffCompression { Lzw, Deflate, Jpeg, None };

struct SaveOptions {
  // The JPEG luminance and chrominance factors, both 13 by default. A factor
  // scales the quantisation tables up from best quality; libjpeg's quality 100 - factor is
  // the mapping used (13 gives quality 87). See docs/formats.md.
  int JpegLuminanceFactor = 13;
  int JpegChrominanceFactor = 13;
  // The palette depth of the file the image came from (1, 4 or 8; 0 for none). BMP, PCX
  // and PNG are written through a palette of that depth while the colours fit in it.
  int PaletteBits = 0;
  // WebP, AVIF, HEIF and JPEG XL: 1 to 100; 100 is lossless.
  int Quality = 90;
  TiffCompression Tiff = TiffCompression::Lzw;

  int JpegQuality() const;
};

// The encoded file for an extension (bmp, dcx, dib, jpg, jpeg, jif, jpe, pbm, pcx, pgm,
// png, ppm, tga, tif, tiff, wpg, webp, avif, heic, heif, jxl); nullopt for an unknown extension or a failed encoder.
std::optional<QByteArray> EncodeImage(const Image& image, const QString& lowerCaseExtension,
                                      const SaveOptions& options = {});

// True for the extensions EncodeImage writes.
bool CanEncode(const QString& lowerCaseExtension);

// The most pixels a file of the format may hold: those written through the helper are
// kept within what the helper reads back, so every file we write we can open again.
// 0 for no cap of the format's own.
qint64 LargestPixelsFor(const QString& lowerCaseExtension);

// Encodes and writes atomically to base::WritableTarget(path); false when anything failed
// (nothing changed on disk).
bool SaveImage(const Image& image, const QString& path, const SaveOptions& options = {});
// The same for a file already encoded.
bool SaveEncoded(const QByteArray& bytes, const QString& path);

}  // namespace imaging
