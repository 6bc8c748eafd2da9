#include "files/LoadImageFile.h"

#include "imaging/Loader.h"
#include "imaging/Palette.h"

namespace files {

std::optional<LoadedImage> LoadImageFile(const QString& path, const base::ScreenMetrics& metrics) {
  auto picture = imaging::LoadFile(path);
  if (!picture) return std::nullopt;
  const auto natural = base::NaturalSize::FromPixels(picture->Width(), picture->Height(), metrics);
  return LoadedImage{std::move(*picture), natural, imaging::PaletteBitsOfFile(path)};
}

}  // namespace files
