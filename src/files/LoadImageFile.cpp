#include "files/LoadImageFile.h"

#include "imaging/Animation.h"
#include "imaging/Loader.h"
#include "imaging/Palette.h"

#include <algorithm>

namespace files {

std::optional<LoadedImage> LoadImageFile(const QString& path, const base::ScreenMetrics& metrics, int page) {
  auto picture = imaging::LoadFile(path, page);
  if (!picture) return std::nullopt;
  const auto natural = base::NaturalSize::FromPixels(picture->Width(), picture->Height(), metrics);
  // Whether a GIF plays is known from its first two frames; its timing is read as it starts.
  const bool animated = imaging::IsAnimation(path);
  return LoadedImage{std::move(*picture), natural, imaging::PaletteBitsOfFile(path),
                     animated ? 1 : imaging::ReadPageFacts(path).TurnablePages(), animated};
}

std::optional<LoadedImage> LoadStandIn(const QString& path, const base::ScreenMetrics& metrics) {
  const int screenWidth = std::max(1, int(metrics.ScreenWidthTwips / metrics.TwipsPerPixelX));
  const int screenHeight = std::max(1, int(metrics.ScreenHeightTwips / metrics.TwipsPerPixelY));
  const auto size = imaging::ReadImageSizeCheaply(path);
  if (!size || qint64(size->width()) * size->height() <= 4 * qint64(screenWidth) * screenHeight) return std::nullopt;
  // Half the screen's sides: a JPEG then decodes at 1/8 scale, in a fraction of the time.
  auto picture = imaging::LoadFitting(path, std::max(1, screenWidth / 2), std::max(1, screenHeight / 2));
  if (!picture) return std::nullopt;
  return LoadedImage{std::move(*picture), base::NaturalSize::FromPixels(size->width(), size->height(), metrics)};
}

}  // namespace files
