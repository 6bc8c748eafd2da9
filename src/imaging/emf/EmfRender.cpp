#include "imaging/emf/EmfRender.h"

#include "imaging/emf/EmfPlayer.h"

#include <cmath>

namespace imaging::emf {

namespace {
constexpr std::size_t kMostRecords = 1'000'000;
constexpr int kLargestSide = 16383;
}  // namespace

QSize OutputSize(const Header& header) {
  const QRect& frame = header.FrameHundredthsMm;
  const auto pixels = [](qint64 hundredthsMm) { return static_cast<int>(std::lround(hundredthsMm * 96.0 / 2540.0)); };
  QSize size(pixels(qint64(frame.right()) - frame.left()), pixels(qint64(frame.bottom()) - frame.top()));
  if (size.width() <= 0 || size.height() <= 0) size = header.Bounds.size();
  return size;
}

std::optional<QImage> Render(const QByteArray& file, std::int64_t maxPixels) {
  const auto header = ReadHeader(file);
  if (!header) return std::nullopt;
  const QSize size = OutputSize(*header);
  if (size.width() <= 0 || size.height() <= 0 || size.width() > kLargestSide || size.height() > kLargestSide ||
      std::int64_t(size.width()) * size.height() > maxPixels) {
    return std::nullopt;
  }
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  {
    Player player(*header, image);
    for (const Record& record : ReadRecords(file, kMostRecords)) player.Play(record);
  }
  return image;
}

}  // namespace imaging::emf
