// Qt's image readers in this process (BMP, ICO, CUR and the portable any-maps).
#include "imaging/Decoders.h"
#include "imaging/Loader.h"
#include "imaging/RowAssembler.h"
#include "base/FileNames.h"

#include <QImageReader>
#include <algorithm>

namespace imaging {

std::optional<QSize> QtHeaderSize(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return std::nullopt;
  QImageReader reader(&file);
  const QSize size = reader.size();
  if (!size.isValid()) return std::nullopt;
  return size;
}

std::optional<SourceFacts> QtSourceFacts(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return std::nullopt;
  QImageReader reader(&file);
  if (!reader.canRead()) return std::nullopt;
  return SourceFacts{std::max(1, reader.imageCount()), 8};
}

namespace {

// The reader is gone when this returns, so the pixels it read have one owner.
QImage ReadWithQt(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return {};
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  if (size.isValid() && std::int64_t(size.width()) * size.height() > kMaxPixels) return {};
  reader.setAllocationLimit(static_cast<int>(kMaxPixels * 4 / (1024 * 1024)) + 1);
  return reader.read();
}

}  // namespace

std::optional<Image> DecodeWithQt(const QString& path, bool onWhite) {
  QImage image = ReadWithQt(path);
  if (image.isNull()) return std::nullopt;
  return FromQImageInBands(std::move(image), onWhite);
}

}  // namespace imaging
