#include "browse/FileTypes.h"

#include "base/NumberRules.h"

#include <QHash>

namespace browse {

const QStringList& ScanExtensions() {
  static const QStringList extensions = {
      QStringLiteral("bmp"), QStringLiteral("cal"), QStringLiteral("cur"), QStringLiteral("dcx"),
      QStringLiteral("dib"), QStringLiteral("emf"), QStringLiteral("gif"), QStringLiteral("ico"),
      QStringLiteral("jpg"), QStringLiteral("jpeg"), QStringLiteral("jif"), QStringLiteral("pbm"),
      QStringLiteral("pcx"), QStringLiteral("pgm"), QStringLiteral("png"), QStringLiteral("ppm"),
      QStringLiteral("rle"), QStringLiteral("tga"), QStringLiteral("tif"), QStringLiteral("wmf"),
      QStringLiteral("wpg")};
  return extensions;
}

bool IsScanExtension(const QString& lowerCaseExtension) {
  return ScanExtensions().contains(lowerCaseExtension);
}

QString FileTypeDescription(const QString& extension) {
  static const QHash<QString, QString> descriptions = {
      {QStringLiteral("bmp"), QStringLiteral("Bitmap image")},
      {QStringLiteral("cal"), QStringLiteral("Cals image")},
      {QStringLiteral("cur"), QStringLiteral("Cursor")},
      {QStringLiteral("dcx"), QStringLiteral("Paintbrush dcx image")},
      {QStringLiteral("dib"), QStringLiteral("Dib image")},
      {QStringLiteral("emf"), QStringLiteral("Enhanced metafile image")},
      {QStringLiteral("gif"), QStringLiteral("Gif image")},
      {QStringLiteral("ico"), QStringLiteral("Icon")},
      {QStringLiteral("jpg"), QStringLiteral("Jpeg image")},
      {QStringLiteral("jpeg"), QStringLiteral("Jpeg image")},
      {QStringLiteral("jpe"), QStringLiteral("Jpeg image")},
      {QStringLiteral("jif"), QStringLiteral("Jpeg image")},
      {QStringLiteral("pbm"), QStringLiteral("Portable bitmap image")},
      {QStringLiteral("pcx"), QStringLiteral("Paintbrush pcx image")},
      {QStringLiteral("pgm"), QStringLiteral("Portable graymap image")},
      {QStringLiteral("png"), QStringLiteral("Png image")},
      {QStringLiteral("ppm"), QStringLiteral("Portable pixmap image")},
      {QStringLiteral("rle"), QStringLiteral("Rle image")},
      {QStringLiteral("tga"), QStringLiteral("Targa image")},
      {QStringLiteral("tif"), QStringLiteral("Tiff image")},
      {QStringLiteral("wmf"), QStringLiteral("Windows metafile image")},
      {QStringLiteral("wpg"), QStringLiteral("Word Perfect graphic bitmap image")},
  };
  const QString key = numbers::TrimBlanks(extension).toLower();
  if (key.isEmpty()) return QStringLiteral("File");
  const auto found = descriptions.constFind(key);
  if (found != descriptions.constEnd()) return *found;
  return extension + QStringLiteral(" file");
}

}  // namespace browse
