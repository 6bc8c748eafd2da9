#include "imaging/Saver.h"

#include "imaging/Decoders.h"
#include "imaging/ImageInternal.h"
#include "imaging/WpgEncoder.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace imaging {

namespace {

std::optional<QByteArray> WithVips(const Image& image, const char* suffix, vips::VOption* options) {
  try {
    const bool jpeg = std::string(suffix) == ".jpg";
    vips::VImage copy = (jpeg ? image.OnWhite() : image).Internal().image.copy();
    if (jpeg) copy.set("orientation", 1);  // the pixels are upright; the rest of EXIF stays
    void* data = nullptr;
    size_t size = 0;
    copy.write_to_buffer(suffix, &data, &size, options);
    QByteArray bytes(static_cast<const char*>(data), static_cast<qsizetype>(size));
    g_free(data);
    return bytes;
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<QByteArray> WithQt(const Image& image, const char* format) {
  QImage picture = image.ToQImage();
  if (qstrcmp(format, "pbm") == 0) picture = picture.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
  if (qstrcmp(format, "pgm") == 0) picture = picture.convertToFormat(QImage::Format_Grayscale8);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  if (!writer.write(picture)) return std::nullopt;
  return bytes;
}

}  // namespace

int SaveOptions::JpegQuality() const { return std::clamp(100 - JpegLuminanceFactor, 1, 100); }

std::optional<QByteArray> EncodeImage(const Image& image, const QString& ext, const SaveOptions& options) {
  if (ext == "jpg" || ext == "jpeg" || ext == "jif" || ext == "jpe") {
    return WithVips(image, ".jpg", vips::VImage::option()->set("Q", options.JpegQuality()));
  }
  if (ext == "png") return WithVips(image, ".png", vips::VImage::option());
  if (ext == "tif" || ext == "tiff") return WithVips(image, ".tif", vips::VImage::option()->set("compression", "lzw"));
  if (ext == "bmp" || ext == "dib") return WithQt(image, "bmp");
  if (ext == "pbm" || ext == "pgm" || ext == "ppm") return WithQt(image, ext.toLatin1().constData());
  if (ext == "tga" || ext == "pcx" || ext == "dcx") return HelperDecoder().Encode(image, ext.toUpper());
  if (ext == "wpg") return EncodeWpg(image);
  return std::nullopt;
}

bool SaveImage(const Image& image, const QString& path, const SaveOptions& options) {
  const QString ext = QFileInfo(path).suffix().toLower();
  const auto bytes = EncodeImage(image, ext, options);
  if (!bytes) return false;
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  if (file.write(*bytes) != bytes->size()) {
    file.cancelWriting();
    return false;
  }
  return file.commit();
}

}  // namespace imaging
