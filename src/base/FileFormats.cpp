#include "base/FileFormats.h"

#include <QFileInfo>

namespace base {

namespace {

constexpr bool kScanned = true, kNotScanned = false, kWritable = true, kReadOnly = false, kHoldsPages = true, kModern = true;

}  // namespace

const std::vector<FileFormat>& FileFormats() {
  static const std::vector<FileFormat> formats = {
      {"bmp", QT_TRANSLATE_NOOP("base", "Bitmap image"), "image/bmp", "BMP", kScanned, "bmp", "Bitmap (*.bmp)", kWritable},
      {"cal", QT_TRANSLATE_NOOP("base", "Cals image"), "image/x-cals", "CALS", kScanned, "cal", nullptr, kReadOnly},
      {"cur", QT_TRANSLATE_NOOP("base", "Cursor"), "image/x-win-bitmap", "CUR", kScanned, "cur", nullptr, kReadOnly, nullptr, kHoldsPages},
      {"dcx", QT_TRANSLATE_NOOP("base", "Paintbrush dcx image"), "image/x-dcx", "DCX", kScanned, nullptr, "Paintbrush dcx (*.dcx)", kWritable, nullptr, kHoldsPages},
      {"dib", QT_TRANSLATE_NOOP("base", "Dib image"), "image/bmp", "DIB", kScanned, "dib", "Dib (*.dib)", kWritable},
      {"emf", QT_TRANSLATE_NOOP("base", "Enhanced metafile image"), "image/emf", "EMF", kScanned, nullptr, nullptr, kReadOnly},
      {"gif", QT_TRANSLATE_NOOP("base", "Gif image"), "image/gif", "", kScanned, "gif", nullptr, kReadOnly, nullptr, kHoldsPages},
      {"ico", QT_TRANSLATE_NOOP("base", "Icon"), "image/vnd.microsoft.icon", "ICO", kScanned, "ico", nullptr, kReadOnly, nullptr, kHoldsPages},
      {"jpe", QT_TRANSLATE_NOOP("base", "Jpeg image"), "image/jpeg", "", kNotScanned, nullptr, nullptr, kWritable, nullptr, false, kModern},
      {"jpg", QT_TRANSLATE_NOOP("base", "Jpeg image"), "image/jpeg", "", kScanned, "jpg;jpeg;jpe;jif", "Jpeg (*.jpg)", kWritable},
      {"jpeg", QT_TRANSLATE_NOOP("base", "Jpeg image"), "image/jpeg", "", kScanned, nullptr, nullptr, kWritable, "jpg"},
      {"jif", QT_TRANSLATE_NOOP("base", "Jpeg image"), "image/jpeg", "", kScanned, nullptr, nullptr, kWritable, "jpg"},
      {"pbm", QT_TRANSLATE_NOOP("base", "Portable bitmap image"), "image/x-portable-bitmap", "PBM", kScanned, "pbm", "Portable bitmap (*.pbm)", kWritable},
      {"pcx", QT_TRANSLATE_NOOP("base", "Paintbrush pcx image"), "image/vnd.zbrush.pcx", "PCX", kScanned, "pcx;dcx", "Paintbrush pcx (*.pcx)", kWritable},
      {"pgm", QT_TRANSLATE_NOOP("base", "Portable graymap image"), "image/x-portable-graymap", "PGM", kScanned, "pgm", "Portable graymap (*.pgm)", kWritable},
      {"png", QT_TRANSLATE_NOOP("base", "Png image"), "image/png", "", kScanned, "png", "Png (*.png)", kWritable},
      {"ppm", QT_TRANSLATE_NOOP("base", "Portable pixmap image"), "image/x-portable-pixmap", "PPM", kScanned, "ppm", "Portable pixmap (*.ppm)", kWritable},
      {"rle", QT_TRANSLATE_NOOP("base", "Rle image"), "image/rle", "BMP", kScanned, "rle", nullptr, kReadOnly},
      {"tga", QT_TRANSLATE_NOOP("base", "Targa image"), "image/x-tga", "TGA", kScanned, "tga", "Targa (*.tga)", kWritable},
      {"tif", QT_TRANSLATE_NOOP("base", "Tiff image"), "image/tiff", "", kScanned, "tif", "Tiff (*.tif)", kWritable, nullptr, kHoldsPages},
      {"wmf", QT_TRANSLATE_NOOP("base", "Windows metafile image"), "image/wmf", "WMF", kScanned, "wmf;emf", nullptr, kReadOnly},
      {"wpg", QT_TRANSLATE_NOOP("base", "Word Perfect graphic bitmap image"), "application/x-wpg", "WPG", kScanned, "wpg",
       "Word Perfect graphic bitmap (*.wpg)", kWritable},
      // Today's types, read by libvips (Photoshop's and OpenEXR by the helper); libvips writes WebP, HEIF, AVIF and JPEG XL.
      {"tiff", QT_TRANSLATE_NOOP("base", "Tiff image"), "image/tiff", "", kNotScanned, nullptr, nullptr, kWritable, "tif", kHoldsPages, kModern},
      {"webp", QT_TRANSLATE_NOOP("base", "WebP image"), "image/webp", "", kNotScanned, "webp", "WebP (*.webp)", kWritable, nullptr, kHoldsPages, kModern},
      {"heic", QT_TRANSLATE_NOOP("base", "HEIF image"), "image/heic", "", kNotScanned, "heic;heif", "HEIF (*.heic)", kWritable, nullptr, kHoldsPages, kModern},
      {"heif", QT_TRANSLATE_NOOP("base", "HEIF image"), "image/heif", "", kNotScanned, nullptr, nullptr, kWritable, "heic", kHoldsPages, kModern},
      {"avif", QT_TRANSLATE_NOOP("base", "AVIF image"), "image/avif", "", kNotScanned, "avif", "AVIF (*.avif)", kWritable, nullptr, kHoldsPages, kModern},
      {"jxl", QT_TRANSLATE_NOOP("base", "JPEG XL image"), "image/jxl", "", kNotScanned, "jxl", "JPEG XL (*.jxl)", kWritable, nullptr, false, kModern},
      {"jp2", QT_TRANSLATE_NOOP("base", "JPEG 2000 image"), "image/jp2", "", kNotScanned, "jp2", nullptr, kReadOnly, nullptr, false, kModern},
      {"svg", QT_TRANSLATE_NOOP("base", "SVG drawing"), "image/svg+xml", "", kNotScanned, "svg", nullptr, kReadOnly, nullptr, false, kModern},
      {"exr", QT_TRANSLATE_NOOP("base", "OpenEXR image"), "image/x-exr", "EXR", kNotScanned, "exr", nullptr, kReadOnly, nullptr, false, kModern},
      {"psd", QT_TRANSLATE_NOOP("base", "Photoshop image"), "image/vnd.adobe.photoshop", "PSD", kNotScanned, "psd", nullptr, kReadOnly, nullptr, false, kModern},
      {"pdf", QT_TRANSLATE_NOOP("base", "PDF document"), "application/pdf", "", kNotScanned, "pdf", nullptr, kReadOnly, nullptr, kHoldsPages, kModern},
      // Camera RAW, read by our LibRaw helper.
      {"cr2", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-canon-cr2", kCameraRaw, kNotScanned, "cr2;cr3;nef;arw;dng;raf;orf;rw2;pef;srw", nullptr, kReadOnly, nullptr, false, kModern},
      {"cr3", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-canon-cr3", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"nef", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-nikon-nef", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"arw", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-sony-arw", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"dng", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-adobe-dng", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"raf", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-fuji-raf", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"orf", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-olympus-orf", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"rw2", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-panasonic-rw2", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"pef", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-pentax-pef", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"srw", QT_TRANSLATE_NOOP("base", "Camera RAW image"), "image/x-samsung-srw", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
  };
  return formats;
}

const FileFormat* FindFileFormat(const QString& lowerCaseExtension) {
  for (const FileFormat& format : FileFormats()) {
    if (lowerCaseExtension == QLatin1String(format.Extension)) return &format;
  }
  return nullptr;
}

bool HasJpegName(const QString& path) {
  const FileFormat* format = FindFileFormat(QFileInfo(path).suffix().toLower());
  return format && qstrcmp(format->MimeType, "image/jpeg") == 0;
}

std::vector<const FileFormat*> FormatGroups() {
  std::vector<const FileFormat*> heads;
  for (const FileFormat& format : FileFormats()) {
    if (format.Group) heads.push_back(&format);
  }
  return heads;
}

QStringList GroupExtensions(const FileFormat& head) {
  return head.Group ? QString::fromLatin1(head.Group).split(u';') : QStringList();
}

std::vector<const FileFormat*> SaveAsFormats() {
  std::vector<const FileFormat*> entries;
  for (const FileFormat& format : FileFormats()) {
    if (format.SaveAs) entries.push_back(&format);
  }
  return entries;
}

}  // namespace base
