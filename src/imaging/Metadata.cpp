#include "imaging/Metadata.h"
#include "base/FileNames.h"
#include "base/NumberRules.h"

#include "imaging/ImageInternal.h"

#include <QDateTime>
#include <QFile>

namespace imaging {

namespace {

// libvips gives an EXIF field as "value (formatted, type, n components, bytes)": the
// formatted text, as photo tools show it ("f/8.0", "1/250 sec.", "50.0 mm", "Top-left").
QString Field(vips::VImage& image, const char* name) {
  if (image.get_typeof(name) == 0) return {};
  char* text = nullptr;
  if (vips_image_get_as_string(image.get_image(), name, &text) != 0 || !text) return {};
  const QString value = QString::fromUtf8(text);
  g_free(text);
  const qsizetype open = value.indexOf(QStringLiteral(" ("));
  if (open < 0 || !value.endsWith(u')')) return value.trimmed();
  QString formatted = value.mid(open + 2).chopped(1);
  for (int i = 0; i < 3; ++i) {  // the type, the components and the bytes
    const qsizetype comma = formatted.lastIndexOf(QStringLiteral(", "));
    if (comma < 0) return value.left(open).trimmed();
    formatted.truncate(comma);
  }
  return formatted.trimmed();
}

// A camera's "2024:07:14 10:30:00" in the form the Modified row uses.
QString CameraDate(const QString& text) {
  const QDateTime taken = QDateTime::fromString(text, QStringLiteral("yyyy:MM:dd HH:mm:ss"));
  return taken.isValid() ? numbers::FormatGeneralDate(taken) : text;
}

QString Joined(const QString& first, const QString& second) {
  if (first.isEmpty() || second.startsWith(first)) return second;
  return second.isEmpty() ? first : first + u' ' + second;
}

}  // namespace

std::vector<std::pair<QString, QString>> ReadPhotoMetadata(const QString& path) {
  std::vector<std::pair<QString, QString>> rows;
  try {
    vips::VImage image = vips::VImage::new_from_file(base::EncodeFileName(path).constData(),
                                                     vips::VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL));
    const auto add = [&rows](const char* name, const QString& value) {
      if (!value.isEmpty()) rows.emplace_back(QLatin1String(name), value);
    };
    add("Camera", Joined(Field(image, "exif-ifd0-Make"), Field(image, "exif-ifd0-Model")));
    add("Lens", Field(image, "exif-ifd2-LensModel"));
    add("Exposure", Field(image, "exif-ifd2-ExposureTime"));
    add("Aperture", Field(image, "exif-ifd2-FNumber"));
    add("ISO", Field(image, "exif-ifd2-ISOSpeedRatings"));
    add("Focal length", Field(image, "exif-ifd2-FocalLength"));
    add("Taken", CameraDate(Field(image, "exif-ifd2-DateTimeOriginal")));
    add("Orientation", Field(image, "exif-ifd0-Orientation"));
    if (image.get_typeof("icc-profile-data") != 0) add("Colour profile", QStringLiteral("embedded"));
    const QString latitude = Field(image, "exif-ifd3-GPSLatitude"), longitude = Field(image, "exif-ifd3-GPSLongitude");
    if (!latitude.isEmpty() && !longitude.isEmpty()) {
      add("GPS position", QStringLiteral("%1 %2, %3 %4")
                              .arg(latitude, Field(image, "exif-ifd3-GPSLatitudeRef"), longitude,
                                   Field(image, "exif-ifd3-GPSLongitudeRef")));
    }
  } catch (const vips::VError&) {
    vips_error_clear();
  }
  return rows;
}

}  // namespace imaging
