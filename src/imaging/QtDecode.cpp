// Qt's image readers in this process (BMP, ICO, CUR and the portable any-maps).
#include "imaging/Decoders.h"
#include "imaging/Loader.h"
#include "imaging/RowAssembler.h"
#include "base/FileNames.h"

#include <QImageReader>
#include <algorithm>
#include <vector>

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
  const int pages = std::max(1, reader.imageCount());
  return SourceFacts{pages, 8, pages > 1 && reader.supportsAnimation()};
}

std::optional<QSize> GifScreenSize(QFile& file) {
  const QByteArray head = file.peek(10);
  if (head.size() < 10 || !head.startsWith("GIF8")) return std::nullopt;
  const auto word = [&head](int at) { return quint8(head[at]) | quint8(head[at + 1]) << 8; };
  return QSize(word(6), word(8));
}

namespace {

// An icon's or a cursor's directory starts with 0, then its type, 1 or 2.
bool IsIcon(QFile& file) {
  const QByteArray head = file.peek(4);
  return head.size() == 4 && head.startsWith(QByteArray("\0\0", 2)) && (head[2] == 1 || head[2] == 2) && head[3] == 0;
}

// Image `page` of the reader's file; an icon's images count largest first.
QImage ReadPage(QImageReader& reader, int page, bool icon) {
  if (!icon) return page == 0 || reader.jumpToImage(page) ? reader.read() : QImage();
  std::vector<QImage> images;
  for (int i = 0; i < std::min(reader.imageCount(), 256) && reader.jumpToImage(i); ++i) images.push_back(reader.read());
  std::stable_sort(images.begin(), images.end(), [](const QImage& a, const QImage& b) {
    return qint64(a.width()) * a.height() > qint64(b.width()) * b.height();
  });
  return page < int(images.size()) ? images[size_t(page)] : QImage();
}

// The reader is gone when this returns, so the pixels it read have one owner.
QImage ReadWithQt(const QString& path, int page) {
  QFile file;
  if (!base::OpenForReading(file, path)) return {};
  const bool icon = IsIcon(file);
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  const std::optional<QSize> gif = GifScreenSize(file);
  const QSize size = gif ? *gif : reader.size();
  if (size.isValid() && std::int64_t(size.width()) * size.height() > kMaxPixels) return {};
  reader.setAllocationLimit(static_cast<int>(kMaxPixels * 4 / (1024 * 1024)) + 1);
  return ReadPage(reader, page, icon);
}

}  // namespace

std::optional<Image> DecodeWithQt(const QString& path, bool onWhite, int page) {
  QImage image = ReadWithQt(path, page);
  if (image.isNull()) return std::nullopt;
  return FromQImageInBands(std::move(image), onWhite);
}

}  // namespace imaging
