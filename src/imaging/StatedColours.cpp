// The colours a file states without an ICC profile: a PNG's gAMA and cHRM chunks, or a
// camera's EXIF saying "Uncalibrated" with the Adobe RGB interoperability index R03. Each
// becomes a profile made with lcms2 that travels with the pixels as an embedded one does
// (shown through it, and embedded when saved as JPEG, PNG or TIFF).
#include "imaging/ImageInternal.h"
#include "imaging/PngChunks.h"

#include <QFile>

#include <lcms2.h>

#include <cmath>
#include <cstring>
#include <iterator>

namespace imaging {

namespace {

constexpr Chromaticities kSrgbPrimaries{0.3127, 0.3290, 0.64, 0.33, 0.30, 0.60, 0.15, 0.06};
constexpr Chromaticities kAdobeRgbPrimaries{0.3127, 0.3290, 0.64, 0.33, 0.21, 0.71, 0.15, 0.06};
constexpr double kAdobeRgbGamma = 563.0 / 256;
constexpr qint64 kHeadBytes = qint64(1) << 20;  // the chunks before the pixels

// An RGB profile of these primaries and a pure power-law curve, as lcms writes it.
QByteArray MadeProfile(const Chromaticities& c, double decodingGamma, const char* description) {
  const cmsCIExyY white{c.WhiteX, c.WhiteY, 1.0};
  const cmsCIExyYTRIPLE primaries{{c.RedX, c.RedY, 1.0}, {c.GreenX, c.GreenY, 1.0}, {c.BlueX, c.BlueY, 1.0}};
  cmsToneCurve* curve = cmsBuildGamma(nullptr, decodingGamma);
  if (!curve) return {};
  cmsToneCurve* curves[3] = {curve, curve, curve};
  cmsHPROFILE profile = cmsCreateRGBProfile(&white, &primaries, curves);
  cmsFreeToneCurve(curve);
  if (!profile) return {};
  if (cmsMLU* text = cmsMLUalloc(nullptr, 1)) {
    cmsMLUsetASCII(text, "en", "US", description);
    cmsWriteTag(profile, cmsSigProfileDescriptionTag, text);
    cmsMLUfree(text);
  }
  cmsUInt32Number size = 0;
  QByteArray bytes;
  if (cmsSaveProfileToMem(profile, nullptr, &size) && size > 0) {
    bytes.resize(qsizetype(size));
    if (!cmsSaveProfileToMem(profile, bytes.data(), &size)) bytes.clear();
  }
  cmsCloseProfile(profile);
  return bytes;
}

// The first word of an EXIF field as libvips gives it ("65535 (Uncalibrated, Short, ...)").
QByteArray ExifWord(const vips::VImage& image, const char* name) {
  const char* text = nullptr;
  if (image.get_typeof(name) == 0 || vips_image_get_string(image.get_image(), name, &text) != 0 || !text) {
    vips_error_clear();
    return {};
  }
  return QByteArray(text).split(' ').value(0);
}

QByteArray StatedByExif(const vips::VImage& image) {
  if (ExifWord(image, "exif-ifd2-ColorSpace") != "65535" || ExifWord(image, "exif-ifd4-InteroperabilityIndex") != "R03") {
    return {};
  }
  return MadeProfile(kAdobeRgbPrimaries, kAdobeRgbGamma, "Adobe RGB (1998) (from EXIF)");
}

bool NearlySrgb(const Chromaticities& c) {
  const double stated[] = {c.WhiteX, c.WhiteY, c.RedX, c.RedY, c.GreenX, c.GreenY, c.BlueX, c.BlueY};
  const double srgb[] = {kSrgbPrimaries.WhiteX, kSrgbPrimaries.WhiteY, kSrgbPrimaries.RedX,   kSrgbPrimaries.RedY,
                         kSrgbPrimaries.GreenX, kSrgbPrimaries.GreenY, kSrgbPrimaries.BlueX, kSrgbPrimaries.BlueY};
  for (size_t i = 0; i < std::size(stated); ++i) {
    if (std::fabs(stated[i] - srgb[i]) > 0.01) return false;
  }
  return true;
}

QByteArray StatedByPngChunks(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const PngColourChunks stated = ReadPngColourChunks(file.read(kHeadBytes));
  if (stated.Srgb || stated.Iccp || (!stated.Gamma && !stated.Primaries)) return {};
  // A gamma of about 1/2.2 with sRGB's primaries, or alone, is what most writers put down
  // to mean sRGB; browsers take it so.
  const bool srgbGamma = !stated.Gamma || std::fabs(*stated.Gamma - 0.45455) < 0.005;
  if (srgbGamma && (!stated.Primaries || NearlySrgb(*stated.Primaries))) return {};
  const double encoding = stated.Gamma.value_or(1 / 2.2);
  return MadeProfile(stated.Primaries.value_or(kSrgbPrimaries), 1 / encoding, "PNG gamma and chromaticities");
}

bool FromPngLoader(const vips::VImage& image) {
  const char* loader = nullptr;
  if (image.get_typeof("vips-loader") == 0 || vips_image_get_string(image.get_image(), "vips-loader", &loader) != 0) {
    vips_error_clear();
    return false;
  }
  return loader && std::strncmp(loader, "png", 3) == 0;
}

}  // namespace

vips::VImage WithStatedColours(const vips::VImage& image, const QString& path) {
  if (HasProfile(image)) return image;
  const QByteArray profile = FromPngLoader(image) ? StatedByPngChunks(path) : StatedByExif(image);
  if (profile.isEmpty()) return image;
  vips::VImage tagged = image.copy();
  vips_image_set_blob_copy(tagged.get_image(), VIPS_META_ICC_NAME, profile.constData(), size_t(profile.size()));
  return tagged;
}

}  // namespace imaging
