#include "base/FileFormats.h"

#include <QFileInfo>

namespace base {

namespace {

constexpr bool kScanned = true, kNotScanned = false, kWritable = true, kReadOnly = false, kHoldsPages = true, kModern = true;

}  // namespace

const std::vector<FileFormat>& FileFormats() {
  static const std::vector<FileFormat> formats = {
      {"bmp", "Bitmap image", "image/bmp", "BMP", kScanned, "bmp", "Bitmap (*.bmp)", kWritable},
      {"cal", "Cals image", "image/x-cals", "CALS", kScanned, "cal", nullptr, kReadOnly},
      {"cur", "Cursor", "image/x-win-bitmap", "CUR", kScanned, "cur", nullptr, kReadOnly, nullptr, kHoldsPages},
      {"dcx", "Paintbrush dcx image", "image/x-dcx", "DCX", kScanned, nullptr, "Paintbrush dcx (*.dcx)", kWritable, nullptr, kHoldsPages},
      {"dib", "Dib image", "image/bmp", "DIB", kScanned, "dib", "Dib (*.dib)", kWritable},
      {"emf", "Enhanced metafile image", "image/emf", "EMF", kScanned, nullptr, nullptr, kReadOnly},
      {"gif", "Gif image", "image/gif", "", kScanned, "gif", nullptr, kReadOnly, nullptr, kHoldsPages},
      {"ico", "Icon", "image/vnd.microsoft.icon", "ICO", kScanned, "ico", nullptr, kReadOnly, nullptr, kHoldsPages},
      {"jpe", "Jpeg image", "image/jpeg", "", kNotScanned, nullptr, nullptr, kWritable, nullptr, false, kModern},
      {"jpg", "Jpeg image", "image/jpeg", "", kScanned, "jpg;jpeg;jpe;jif", "Jpeg (*.jpg)", kWritable},
      {"jpeg", "Jpeg image", "image/jpeg", "", kScanned, nullptr, nullptr, kWritable, "jpg"},
      {"jif", "Jpeg image", "image/jpeg", "", kScanned, nullptr, nullptr, kWritable, "jpg"},
      {"pbm", "Portable bitmap image", "image/x-portable-bitmap", "PBM", kScanned, "pbm", "Portable bitmap (*.pbm)", kWritable},
      {"pcx", "Paintbrush pcx image", "image/vnd.zbrush.pcx", "PCX", kScanned, "pcx;dcx", "Paintbrush pcx (*.pcx)", kWritable},
      {"pgm", "Portable graymap image", "image/x-portable-graymap", "PGM", kScanned, "pgm", "Portable graymap (*.pgm)", kWritable},
      {"png", "Png image", "image/png", "", kScanned, "png", "Png (*.png)", kWritable},
      {"ppm", "Portable pixmap image", "image/x-portable-pixmap", "PPM", kScanned, "ppm", "Portable pixmap (*.ppm)", kWritable},
      {"rle", "Rle image", "image/rle", "BMP", kScanned, "rle", nullptr, kReadOnly},
      {"tga", "Targa image", "image/x-tga", "TGA", kScanned, "tga", "Targa (*.tga)", kWritable},
      {"tif", "Tiff image", "image/tiff", "", kScanned, "tif", "Tiff (*.tif)", kWritable, nullptr, kHoldsPages},
      {"wmf", "Windows metafile image", "image/wmf", "WMF", kScanned, "wmf;emf", nullptr, kReadOnly},
      {"wpg", "Word Perfect graphic bitmap image", "application/x-wpg", "WPG", kScanned, "wpg",
       "Word Perfect graphic bitmap (*.wpg)", kWritable},
      // Today's types, read by libvips (Photoshop's and OpenEXR by the helper); libvips writes WebP, HEIF, AVIF and JPEG XL.
      {"tiff", "Tiff image", "image/tiff", "", kNotScanned, nullptr, nullptr, kWritable, "tif", kHoldsPages, kModern},
      {"webp", "WebP image", "image/webp", "", kNotScanned, "webp", "WebP (*.webp)", kWritable, nullptr, kHoldsPages, kModern},
      {"heic", "HEIF image", "image/heic", "", kNotScanned, "heic;heif", "HEIF (*.heic)", kWritable, nullptr, kHoldsPages, kModern},
      {"heif", "HEIF image", "image/heif", "", kNotScanned, nullptr, nullptr, kWritable, "heic", kHoldsPages, kModern},
      {"avif", "AVIF image", "image/avif", "", kNotScanned, "avif", "AVIF (*.avif)", kWritable, nullptr, kHoldsPages, kModern},
      {"jxl", "JPEG XL image", "image/jxl", "", kNotScanned, "jxl", "JPEG XL (*.jxl)", kWritable, nullptr, false, kModern},
      {"jp2", "JPEG 2000 image", "image/jp2", "", kNotScanned, "jp2", nullptr, kReadOnly, nullptr, false, kModern},
      {"svg", "SVG drawing", "image/svg+xml", "", kNotScanned, "svg", nullptr, kReadOnly, nullptr, false, kModern},
      {"exr", "OpenEXR image", "image/x-exr", "EXR", kNotScanned, "exr", nullptr, kReadOnly, nullptr, false, kModern},
      {"psd", "Photoshop image", "image/vnd.adobe.photoshop", "PSD", kNotScanned, "psd", nullptr, kReadOnly, nullptr, false, kModern},
      {"pdf", "PDF document", "application/pdf", "", kNotScanned, "pdf", nullptr, kReadOnly, nullptr, kHoldsPages, kModern},
      // Camera RAW, read by our LibRaw helper.
      {"cr2", "Camera RAW image", "image/x-canon-cr2", kCameraRaw, kNotScanned, "cr2;cr3;nef;arw;dng;raf;orf;rw2;pef;srw", nullptr, kReadOnly, nullptr, false, kModern},
      {"cr3", "Camera RAW image", "image/x-canon-cr3", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"nef", "Camera RAW image", "image/x-nikon-nef", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"arw", "Camera RAW image", "image/x-sony-arw", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"dng", "Camera RAW image", "image/x-adobe-dng", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"raf", "Camera RAW image", "image/x-fuji-raf", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"orf", "Camera RAW image", "image/x-olympus-orf", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"rw2", "Camera RAW image", "image/x-panasonic-rw2", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"pef", "Camera RAW image", "image/x-pentax-pef", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
      {"srw", "Camera RAW image", "image/x-samsung-srw", kCameraRaw, kNotScanned, nullptr, nullptr, kReadOnly, nullptr, false, kModern},
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
