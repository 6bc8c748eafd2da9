#include "files/Properties.h"
#include "base/Texts.h"

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
  return numbers::FormatThousands(double(bytes)) + Texts::tr(" bytes (") +
         numbers::FormatThousandsOneDecimal(kilobytes) + Texts::tr(" KB)");
}

QString DimensionsText(const QString& path) {
  const auto size = imaging::ReadImageSize(path);
  if (!size || size->isEmpty()) return Texts::tr("(Unknow)");
  return numbers::FormatThousands(size->width()) + QStringLiteral(" x ") + numbers::FormatThousands(size->height());
}

}  // namespace

std::vector<std::pair<QString, QString>> PropertyRows(const QString& path) {
  const QFileInfo file(path);
  std::vector<std::pair<QString, QString>> rows = {
      {Texts::tr("File"), base::DisplayName(path)},
      {Texts::tr("Folder"), file.absolutePath()},
      {Texts::tr("Size"), SizeText(file.size())},
      {Texts::tr("Type"), browse::FileTypeDescription(base::FileExtension(path))},
      {Texts::tr("Modified"), numbers::FormatGeneralDate(file.lastModified())},
      {Texts::tr("Width x height"), DimensionsText(path)},
  };
  // A file of several pages says how many; an animation, how many frames and how long.
  if (const auto timing = imaging::ReadFrameTiming(path)) {
    rows.emplace_back(Texts::tr("Animation"), imaging::DescribeAnimation(*timing));
  } else if (const imaging::SourceFacts facts = imaging::ReadSourceFacts(path); facts.Pages > 1) {
    rows.emplace_back(Texts::tr("Pages"), numbers::FormatThousands(facts.Pages));
  }
  for (auto& row : imaging::ReadPhotoMetadata(path)) rows.push_back(std::move(row));
  return rows;
}

}  // namespace files
