#include "files/LoadImageFile.h"

#include "files/NaturalSize.h"
#include "imaging/Loader.h"

namespace files {

std::optional<LoadedImage> LoadImageFile(const QString& path, const app::ScreenMetrics& metrics) {
  auto picture = imaging::LoadFile(path);
  if (!picture) return std::nullopt;
  const QString tag = NaturalSizeRecord(picture->Width(), picture->Height(), metrics);
  return LoadedImage{std::move(*picture), tag};
}

}  // namespace files
