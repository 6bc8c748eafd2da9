#include "imaging/Saver.h"

#include "imaging/Decoders.h"
#include "imaging/Palette.h"
#include "imaging/SaverInternal.h"
#include "imaging/WrittenMetadata.h"
#include "imaging/WpgEncoder.h"

#include "base/FileNames.h"

#include <QBuffer>
#include <algorithm>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace imaging {

namespace {

const QStringList kPaletteFormats = {"bmp", "dib", "png", "pcx", "dcx"};

// A metadata blob of the image, or nothing.
QByteArray Blob(const vips::VImage& image, const char* name) {
  if (image.get_typeof(name) == 0) return {};
  size_t length = 0;
  const void* data = image.get_blob(name, &length);
  return QByteArray(static_cast<const char*>(data), qsizetype(length));
}

std::optional<QByteArray> WithVips(const Image& image, const VipsSaveSpec& spec) {
  try {
    void* data = nullptr;
    size_t size = 0;
    const vips::VImage prepared = PreparedForVipsSave(image, spec);
    prepared.write_to_buffer(spec.Suffix.toLatin1().constData(), &data, &size, spec.Options());
    QByteArray bytes(static_cast<const char*>(data), static_cast<qsizetype>(size));
    g_free(data);
    if (spec.Suffix == QLatin1String(".tif")) return WithExif(bytes, Blob(prepared, VIPS_META_EXIF_NAME));
    if (spec.Suffix == QLatin1String(".jxl")) return JxlWithMetadata(bytes, Blob(prepared, VIPS_META_EXIF_NAME), Blob(prepared, VIPS_META_XMP_NAME));
    return bytes;
  } catch (const vips::VError&) {
    vips_error_clear();
    return std::nullopt;
  }
}

std::optional<QByteArray> WithQt(const QImage& picture, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  if (!writer.write(picture)) return std::nullopt;
  return bytes;
}

std::optional<QByteArray> WithQt(const Image& image, const char* format) {
  QImage picture = image.ToQImage();
  if (qstrcmp(format, "pbm") == 0) picture = picture.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
  if (qstrcmp(format, "pgm") == 0) picture = picture.convertToFormat(QImage::Format_Grayscale8);
  return WithQt(picture, format);
}

// BMP and PNG from Qt's writers, PCX from ImageMagick reading that BMP (it keeps the
// palette only when its input has one).
std::optional<QByteArray> ThroughPalette(const QImage& paletted, const QString& ext) {
  if (ext == "bmp" || ext == "dib") return WithQt(paletted, "bmp");
  if (ext == "png") return WithQt(paletted, "png");
  if (ext != "pcx" && ext != "dcx") return std::nullopt;
  const auto bmp = WithQt(paletted, "bmp");
  return bmp ? HelperDecoder().Convert(*bmp, QStringLiteral("BMP"), ext.toUpper()) : std::nullopt;
}

// Binary PPM: a header, then the RGB samples as they lie in memory.
QByteArray PpmHeader(const Image& rgb) { return QStringLiteral("P6\n%1 %2\n255\n").arg(rgb.Width()).arg(rgb.Height()).toLatin1(); }
QByteArrayView PpmSamples(const Image& rgb) {
  return {static_cast<const char*>(rgb.Internal().image.data()), qsizetype(rgb.Width()) * rgb.Height() * 3};
}

// A temporary file beside the target, renamed over it once complete (QSaveFile).
bool WriteAtomically(const QString& path, std::initializer_list<QByteArrayView> pieces) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  for (const QByteArrayView piece : pieces) {
    if (file.write(piece.data(), piece.size()) != piece.size()) {
      file.cancelWriting();
      return false;
    }
  }
  return file.commit();
}

}  // namespace

int SaveOptions::JpegQuality() const { return std::clamp(100 - JpegLuminanceFactor, 1, 100); }

std::optional<VipsSaveSpec> VipsSaveSpecFor(const QString& ext, const SaveOptions& options) {
  if (ext == "jpg" || ext == "jpeg" || ext == "jif" || ext == "jpe") {
    const int quality = options.JpegQuality();
    return VipsSaveSpec{.Suffix = ".jpg",
                        .Options = [quality] { return vips::VImage::option()->set("Q", quality); },
                        .OnWhite = true,
                        .Upright = true,
                        .HoldsProfile = true};
  }
  if (ext == "png") {
    return VipsSaveSpec{
        .Suffix = ".png", .Options = [] { return vips::VImage::option(); }, .HoldsSixteenBits = true, .HoldsProfile = true};
  }
  if (ext == "tif" || ext == "tiff") {
    static const char* const kCompressions[] = {"lzw", "deflate", "jpeg", "none"};
    const char* compression = kCompressions[int(options.Tiff)];
    return VipsSaveSpec{.Suffix = ".tif",
                        .Options = [compression] { return vips::VImage::option()->set("compression", compression); },
                        .HoldsSixteenBits = true,
                        .HoldsProfile = true};
  }
  // Today's formats: the quality, or lossless at 100.
  const int quality = std::clamp(options.Quality, 1, 100);
  const auto qualityOptions = [quality](vips::VOption* set) {
    return quality == 100 ? set->set("lossless", true) : set->set("Q", quality);
  };
  const auto heifOptions = [quality, qualityOptions](vips::VOption* set) {  // lossless keeps every pixel's colour too
    return quality == 100 ? qualityOptions(set)->set("subsample_mode", VIPS_FOREIGN_SUBSAMPLE_OFF) : qualityOptions(set);
  };
  if (ext == "webp") {
    return VipsSaveSpec{.Suffix = ".webp", .Options = [qualityOptions] { return qualityOptions(vips::VImage::option()); }, .HoldsProfile = true};
  }
  if (ext == "heic" || ext == "heif" || ext == "avif" || ext == "jxl") LoadFormatModules();
  if (ext == "heic" || ext == "heif" || ext == "avif") {
    const VipsForeignHeifCompression codec = ext == "avif" ? VIPS_FOREIGN_HEIF_COMPRESSION_AV1 : VIPS_FOREIGN_HEIF_COMPRESSION_HEVC;
    return VipsSaveSpec{.Suffix = ".heif",
                        .Options = [heifOptions, codec] { return heifOptions(vips::VImage::option()->set("compression", codec)); },
                        .HoldsProfile = true};
  }
  if (ext == "jxl") {
    return VipsSaveSpec{.Suffix = ".jxl", .Options = [qualityOptions] { return qualityOptions(vips::VImage::option()); }, .HoldsProfile = true};
  }
  if (ext == "ppm") return VipsSaveSpec{.Suffix = ".ppm", .Options = [] { return vips::VImage::option(); }, .OnWhite = true};
  return std::nullopt;
}

vips::VImage PreparedForVipsSave(const Image& image, const VipsSaveSpec& spec) {
  vips::VImage prepared = image.Internal().image;
  if (!spec.HoldsProfile) {
    prepared = InSrgb(prepared);
  } else if (!spec.HoldsSixteenBits) {
    prepared = EightBitOf(prepared);
  }
  if (spec.OnWhite) prepared = FlattenedOnWhite(prepared);
  prepared = prepared.copy();
  if (spec.Upright) prepared.set("orientation", 1);  // the pixels are upright; the rest of EXIF stays
  return prepared;
}

qint64 LargestPixelsFor(const QString& ext) {
  static const QStringList kThroughHelper = {"tga", "pcx", "dcx", "wpg"};
  return kThroughHelper.contains(ext) ? kHelperMaxPixels : 0;
}

std::optional<QByteArray> EncodeImage(const Image& image, const QString& ext, const SaveOptions& options) {
  if (const qint64 largest = LargestPixelsFor(ext); largest > 0 && qint64(image.Width()) * image.Height() > largest) {
    return std::nullopt;
  }
  const auto spec = VipsSaveSpecFor(ext, options);
  if (image.BitsPerSample() > 8 && spec && spec->HoldsSixteenBits) return WithVips(image, *spec);
  // Every other writer takes 8 bits per sample, and sRGB unless the format holds the profile.
  const Image pixels = spec && spec->HoldsProfile ? image.EightBit() : image.InSrgb();
  if (ext == "ppm") {
    const Image rgb = pixels.OnWhite();
    return PpmHeader(rgb) + PpmSamples(rgb).toByteArray();
  }
  if (options.PaletteBits > 0 && kPaletteFormats.contains(ext)) {
    if (const QImage paletted = ToExactPalette(pixels, options.PaletteBits); !paletted.isNull()) {
      return ThroughPalette(paletted, ext);
    }
  }
  if (spec) return WithVips(pixels, *spec);
  if (ext == "bmp" || ext == "dib") return WithQt(pixels, "bmp");
  if (ext == "pbm" || ext == "pgm") return WithQt(pixels, ext.toLatin1().constData());
  if (ext == "tga" || ext == "pcx" || ext == "dcx") return HelperDecoder().Encode(pixels, ext.toUpper());
  if (ext == "wpg") return EncodeWpg(pixels);
  return std::nullopt;
}

bool CanEncode(const QString& ext) {
  static const QStringList kOthers = {"ppm", "bmp", "dib", "pbm", "pgm", "tga", "pcx", "dcx", "wpg"};
  return VipsSaveSpecFor(ext, {}).has_value() || kOthers.contains(ext);
}

bool SaveImage(const Image& image, const QString& path, const SaveOptions& options) {
  const QString ext = QFileInfo(path).suffix().toLower();
  const auto target = base::WritableTarget(path);
  if (!target) return false;
  if (ext == "ppm") {  // straight from the pixels: no encoded copy
    const Image rgb = image.InSrgb().OnWhite();
    return WriteAtomically(*target, {PpmHeader(rgb), PpmSamples(rgb)});
  }
  const auto bytes = EncodeImage(image, ext, options);
  return bytes && WriteAtomically(*target, {*bytes});
}

bool SaveEncoded(const QByteArray& bytes, const QString& path) {
  const auto target = base::WritableTarget(path);
  return target && WriteAtomically(*target, {bytes});
}

}  // namespace imaging
