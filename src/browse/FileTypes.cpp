#include "browse/FileTypes.h"

#include "base/FileFormats.h"
#include "base/NumberRules.h"

namespace browse {

const QStringList& ScanExtensions() {
  static const QStringList extensions = [] {
    QStringList scanned;
    for (const base::FileFormat& format : base::FileFormats()) {
      if (format.Scanned) scanned << QLatin1String(format.Extension);
    }
    return scanned;
  }();
  return extensions;
}

bool IsScanExtension(const QString& lowerCaseExtension) {
  return ScanExtensions().contains(lowerCaseExtension);
}

QString FileTypeDescription(const QString& extension) {
  const QString key = numbers::TrimBlanks(extension).toLower();
  if (key.isEmpty()) return QStringLiteral("File");
  if (const base::FileFormat* format = base::FindFileFormat(key)) return QLatin1String(format->Description);
  return extension + QStringLiteral(" file");
}

}  // namespace browse
