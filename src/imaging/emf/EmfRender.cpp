#include "imaging/emf/EmfRender.h"

#include "imaging/emf/EmfPlayer.h"

#include <algorithm>
#include <cmath>

namespace imaging::emf {

namespace {
constexpr std::size_t kMostRecords = 1'000'000;
constexpr int kLargestSide = 16383;
}  // namespace


QSize OutputSize(const Header& header) {
  const Box& frame = header.FrameHundredthsMm;
  const auto fromFrame = [](std::int64_t hundredthsMm) { return double(hundredthsMm) * 96.0 / 2540.0; };
  double width = fromFrame(frame.Width());
  double height = fromFrame(frame.Height());
  if (width < 0.5 || height < 0.5) {
    width = double(header.Bounds.Width()) + 1;
    height = double(header.Bounds.Height()) + 1;
  }
  // Anything beyond the largest side is refused by the caller; clamp before converting.
  const auto side = [](double v) { return static_cast<int>(std::lround(std::clamp(v, -1.0, double(kLargestSide) + 1))); };
  return QSize(side(width), side(height));
}

std::optional<QImage> Render(const QByteArray& file, std::int64_t maxPixels) {
  const auto header = ReadHeader(file);
  if (!header) return std::nullopt;
  const QSize size = OutputSize(*header);
  if (size.width() <= 0 || size.height() <= 0 || size.width() > kLargestSide || size.height() > kLargestSide ||
      std::int64_t(size.width()) * size.height() > maxPixels) {
    return std::nullopt;
  }
  QImage image(size, QImage::Format_RGB32);
  if (image.isNull()) return std::nullopt;
  image.fill(Qt::white);
  {
    Player player(*header, image);
    for (const Record& record : ReadRecords(file, kMostRecords)) {
      player.Play(record);
      if (player.Exhausted()) return std::nullopt;
    }
  }
  return image;
}

}  // namespace imaging::emf
