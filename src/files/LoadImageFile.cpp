#include "files/LoadImageFile.h"

#include "imaging/Animation.h"
#include "imaging/Loader.h"
#include "imaging/Palette.h"
#include "imaging/Raw.h"

#include <algorithm>

namespace files {

namespace {

QSize ScreenPixels(const base::ScreenMetrics& metrics) {
  return {std::max(1, int(metrics.ScreenWidthTwips / metrics.TwipsPerPixelX)),
          std::max(1, int(metrics.ScreenHeightTwips / metrics.TwipsPerPixelY))};
}

std::optional<LoadedImage> RawPreview(const QString& path, const base::ScreenMetrics& metrics) {
  auto preview = imaging::ReadRawPreview(path);
  if (!preview) return std::nullopt;
  const QSize screen = ScreenPixels(metrics);
  const bool largeEnough = preview->Picture.Width() * 2 >= std::min(preview->Developed.width(), screen.width()) &&
                           preview->Picture.Height() * 2 >= std::min(preview->Developed.height(), screen.height());
  if (!largeEnough) return std::nullopt;
  const auto natural = base::NaturalSize::FromPixels(preview->Picture.Width(), preview->Picture.Height(), metrics);
  LoadedImage loaded{std::move(preview->Picture), natural};
  loaded.Preview = true;
  return loaded;
}

// A picture larger than four screens is shown quickly while it is read.
bool GetsQuickPictures(QSize size, const base::ScreenMetrics& metrics) {
  const QSize screen = ScreenPixels(metrics);
  return qint64(size.width()) * size.height() > 4 * qint64(screen.width()) * screen.height();
}

}  // namespace

std::optional<LoadedImage> DevelopRawFile(const QString& path, const base::ScreenMetrics& metrics) {
  auto picture = imaging::DevelopRaw(path);
  if (!picture) return std::nullopt;
  const auto natural = base::NaturalSize::FromPixels(picture->Width(), picture->Height(), metrics);
  return LoadedImage{std::move(*picture), natural};
}

std::optional<LoadedImage> LoadImageFile(const QString& path, const base::ScreenMetrics& metrics, int page) {
  if (imaging::IsCameraRaw(path)) {
    if (auto preview = RawPreview(path, metrics)) return preview;
    return DevelopRawFile(path, metrics);
  }
  // The quick pictures are decoded on another core while this one is read.
  const auto size = page == 0 ? imaging::ReadImageSizeCheaply(path) : std::nullopt;
  const bool quick = size && GetsQuickPictures(*size, metrics);
  auto picture = imaging::LoadFile(path, page, quick ? imaging::DecodeCores::One : imaging::DecodeCores::All);
  if (!picture) return std::nullopt;
  const auto natural = base::NaturalSize::FromPixels(picture->Width(), picture->Height(), metrics);
  // Whether a GIF plays is known from its first two frames; its timing is read as it starts.
  const bool animated = imaging::IsAnimation(path);
  return LoadedImage{std::move(*picture), natural, imaging::PaletteBitsOfFile(path),
                     animated ? 1 : imaging::ReadPageFacts(path).TurnablePages(), animated};
}

void LoadQuickPictures(const QString& path, QSize box, const base::ScreenMetrics& metrics, const QuickPictureSink& deliver) {
  const QSize screen = ScreenPixels(metrics);
  const auto size = imaging::ReadImageSizeCheaply(path);
  if (!size || !GetsQuickPictures(*size, metrics)) return;
  const auto natural = base::NaturalSize::FromPixels(size->width(), size->height(), metrics);
  auto glimpse = imaging::ReadEmbeddedPreview(path);
  if (!glimpse) glimpse = imaging::LoadGlimpse(path);
  if (glimpse && !deliver({std::move(*glimpse), natural})) return;
  box = box.isEmpty() ? screen / 2 : box.boundedTo(screen);
  if (auto fitted = imaging::LoadFitting(path, std::max(1, box.width()), std::max(1, box.height()))) {
    deliver({std::move(*fitted), natural});
  }
}

}  // namespace files
