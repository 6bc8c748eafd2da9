// Qt's image readers in this process (BMP, ICO, CUR and the portable any-maps).
#include "imaging/Decoders.h"
#include "imaging/Loader.h"
#include "base/FileNames.h"

#include <QImageReader>

namespace imaging {

std::optional<QSize> QtHeaderSize(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return std::nullopt;
  QImageReader reader(&file);
  const QSize size = reader.size();
  if (!size.isValid()) return std::nullopt;
  return size;
}

std::optional<Image> DecodeWithQt(const QString& path) {
  QFile file;
  if (!base::OpenForReading(file, path)) return std::nullopt;
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  if (size.isValid() && std::int64_t(size.width()) * size.height() > kMaxPixels) return std::nullopt;
  reader.setAllocationLimit(static_cast<int>(kMaxPixels * 4 / (1024 * 1024)) + 1);
  const QImage image = reader.read();
  if (image.isNull()) return std::nullopt;
  return Image::FromQImage(image);
}

}  // namespace imaging
