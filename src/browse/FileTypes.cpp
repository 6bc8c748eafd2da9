#include "browse/FileTypes.h"
#include "base/Texts.h"

#include "base/FileFormats.h"
#include "base/NumberRules.h"

namespace browse {

namespace {

QStringList ScannedRows(bool modern) {
  QStringList scanned;
  for (const base::FileFormat& format : base::FileFormats()) {
    if (format.Scanned || (modern && format.Modern)) scanned << QLatin1String(format.Extension);
  }
  return scanned;
}

}  // namespace

const QStringList& ScanExtensions(bool modern) {
  static const QStringList classic = ScannedRows(false), today = ScannedRows(true);
  return modern ? today : classic;
}

QString FileTypeDescription(const QString& extension) {
  const QString key = numbers::TrimBlanks(extension).toLower();
  if (key.isEmpty()) return Texts::tr("File");
  if (const base::FileFormat* format = base::FindFileFormat(key)) return base::Texts::tr(format->Description);
  return extension + Texts::tr(" file");
}

}  // namespace browse
