#include "imaging/Metadata.h"
#include "base/Texts.h"
#include "base/FileNames.h"
#include "base/NumberRules.h"

#include "imaging/ImageInternal.h"
#include "imaging/Raw.h"

#include <QDateTime>
#include <QFile>
#include <QHash>

#include <functional>

namespace imaging {

namespace {

// libvips gives an EXIF field as "value (formatted, type, n components, bytes)". The value
// is taken and written out here in the program's own words, whatever the user's locale
// (the formatted part follows the locale and would mix languages).
QString Field(vips::VImage& image, const char* name) {
  if (image.get_typeof(name) == 0) return {};
  char* text = nullptr;
  if (vips_image_get_as_string(image.get_image(), name, &text) != 0 || !text) return {};
  const QString value = QString::fromUtf8(text);
  g_free(text);
  const qsizetype detail = value.indexOf(QStringLiteral(" ("));
  return (detail >= 0 ? value.left(detail) : value).trimmed();
}

// "8/1 28/10" as 8 and 2.8; a part that is no fraction reads as a number.
std::vector<double> Rationals(const QString& text) {
  std::vector<double> values;
  for (const QString& part : text.split(u' ', Qt::SkipEmptyParts)) {
    const QStringList sides = part.split(u'/');
    const double denominator = sides.size() == 2 ? sides[1].toDouble() : 1.0;
    if (denominator != 0) values.push_back(sides[0].toDouble() / denominator);
  }
  return values;
}

// At most one decimal, without a trailing ".0": 8, 2.8, 18.5.
QString Decimal(double value) {
  const QString text = QString::number(value, 'f', 1);
  return text.endsWith(QStringLiteral(".0")) ? text.chopped(2) : text;
}

QString Formatted(const QString& raw, const QString& before, const QString& after) {
  const std::vector<double> values = Rationals(raw);
  return values.empty() ? QString() : before + Decimal(values.front()) + after;
}

QString ExposureText(const QString& raw) {
  const std::vector<double> values = Rationals(raw);
  if (values.empty() || values.front() <= 0) return {};
  const double seconds = values.front();
  return seconds < 1 ? QStringLiteral("1/%1 s").arg(qRound(1 / seconds)) : Decimal(seconds) + QStringLiteral(" s");
}

QString OrientationText(const QString& raw) {
  static const char* const kNames[] = {
      QT_TRANSLATE_NOOP("imaging", "Top-left"),  QT_TRANSLATE_NOOP("imaging", "Top-right"),    QT_TRANSLATE_NOOP("imaging", "Bottom-right"),
      QT_TRANSLATE_NOOP("imaging", "Bottom-left"), QT_TRANSLATE_NOOP("imaging", "Left-top"),   QT_TRANSLATE_NOOP("imaging", "Right-top"),
      QT_TRANSLATE_NOOP("imaging", "Right-bottom"), QT_TRANSLATE_NOOP("imaging", "Left-bottom")};
  const int value = raw.toInt();
  return value >= 1 && value <= 8 ? Texts::tr(kNames[value - 1]) : QString();
}

// Degrees, minutes and seconds as one number of degrees, with its hemisphere.
QString Coordinate(const QString& raw, const QString& reference) {
  const std::vector<double> parts = Rationals(raw);
  if (parts.size() != 3) return {};
  return QString::number(parts[0] + parts[1] / 60 + parts[2] / 3600, 'f', 5) + QStringLiteral("\u00b0 ") + reference;
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

using Rows = std::vector<std::pair<QString, QString>>;
using FieldReader = std::function<QString(const char* name)>;

void Add(Rows& rows, const char* name, const QString& value) {
  if (!value.isEmpty()) rows.emplace_back(Texts::tr(name), value);
}

// The camera's rows, from fields named as libvips names EXIF's.
void AddCameraRows(Rows& rows, const FieldReader& field) {
  Add(rows, QT_TRANSLATE_NOOP("imaging", "Camera"), Joined(field("exif-ifd0-Make"), field("exif-ifd0-Model")));
  Add(rows, QT_TRANSLATE_NOOP("imaging", "Lens"), field("exif-ifd2-LensModel"));
  Add(rows, QT_TRANSLATE_NOOP("imaging", "Exposure"), ExposureText(field("exif-ifd2-ExposureTime")));
  Add(rows, QT_TRANSLATE_NOOP("imaging", "Aperture"), Formatted(field("exif-ifd2-FNumber"), QStringLiteral("f/"), {}));
  Add(rows, QT_TRANSLATE_NOOP("imaging", "ISO"), field("exif-ifd2-ISOSpeedRatings"));
  Add(rows, QT_TRANSLATE_NOOP("imaging", "Focal length"), Formatted(field("exif-ifd2-FocalLength"), {}, QStringLiteral(" mm")));
  Add(rows, QT_TRANSLATE_NOOP("imaging", "Taken"), CameraDate(field("exif-ifd2-DateTimeOriginal")));
  Add(rows, QT_TRANSLATE_NOOP("imaging", "Orientation"), OrientationText(field("exif-ifd0-Orientation")));
}

}  // namespace

std::vector<std::pair<QString, QString>> ReadPhotoMetadata(const QString& path) {
  Rows rows;
  if (IsCameraRaw(path)) {
    const QHash<QString, QString> facts = ReadRawFacts(path);
    AddCameraRows(rows, [&facts](const char* name) { return facts.value(QLatin1String(name)); });
    return rows;
  }
  try {
    const vips::VSource source = SourceOf(path);  // first: the options are freed only by the call
    vips::VImage image = vips::VImage::new_from_source(source, "", vips::VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL));
    AddCameraRows(rows, [&image](const char* name) { return Field(image, name); });
    Add(rows, QT_TRANSLATE_NOOP("imaging", "Colour profile"), ProfileSummary(WithStatedColours(image, path)));
    const QString latitude = Coordinate(Field(image, "exif-ifd3-GPSLatitude"), Field(image, "exif-ifd3-GPSLatitudeRef"));
    const QString longitude = Coordinate(Field(image, "exif-ifd3-GPSLongitude"), Field(image, "exif-ifd3-GPSLongitudeRef"));
    if (!latitude.isEmpty() && !longitude.isEmpty()) Add(rows, QT_TRANSLATE_NOOP("imaging", "GPS position"), latitude + QStringLiteral(", ") + longitude);
  } catch (const vips::VError&) {
    vips_error_clear();
  }
  return rows;
}

}  // namespace imaging
