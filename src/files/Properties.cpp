#include "files/Properties.h"

#include "base/NumberRules.h"
#include "base/Paths.h"
#include "browse/FileTypes.h"
#include "imaging/Animation.h"
#include "imaging/Loader.h"
#include "imaging/Metadata.h"

#include <QFileInfo>

namespace files {

namespace {

QString SizeText(qint64 bytes) {
  const double kilobytes = numbers::Floor(double(bytes) / 102.4) / 10;
  return numbers::FormatThousands(double(bytes)) + QStringLiteral(" bytes (") +
         numbers::FormatThousandsOneDecimal(kilobytes) + QStringLiteral(" KB)");
}

QString DimensionsText(const QString& path) {
  const auto size = imaging::ReadImageSize(path);
  if (!size || size->isEmpty()) return QStringLiteral("(Unknow)");
  return numbers::FormatThousands(size->width()) + QStringLiteral(" x ") + numbers::FormatThousands(size->height());
}

}  // namespace

std::vector<std::pair<QString, QString>> PropertyRows(const QString& path) {
  const QFileInfo file(path);
  std::vector<std::pair<QString, QString>> rows = {
      {QStringLiteral("File"), base::DisplayName(path)},
      {QStringLiteral("Folder"), file.absolutePath()},
      {QStringLiteral("Size"), SizeText(file.size())},
      {QStringLiteral("Type"), browse::FileTypeDescription(base::FileExtension(path))},
      {QStringLiteral("Modified"), numbers::FormatGeneralDate(file.lastModified())},
      {QStringLiteral("Width x height"), DimensionsText(path)},
  };
  // A file of several pages says how many; an animation, how many frames and how long.
  if (const auto timing = imaging::ReadFrameTiming(path)) {
    rows.emplace_back(QStringLiteral("Animation"), imaging::DescribeAnimation(*timing));
  } else if (const imaging::SourceFacts facts = imaging::ReadSourceFacts(path); facts.Pages > 1) {
    rows.emplace_back(QStringLiteral("Pages"), numbers::FormatThousands(facts.Pages));
  }
  for (auto& row : imaging::ReadPhotoMetadata(path)) rows.push_back(std::move(row));
  return rows;
}

}  // namespace files
